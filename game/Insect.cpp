#include "Insect.h"

#include "EventMouse.h"
#include "EventOut.h"
#include "EventPin.h"
#include "EventSlow.h"
#include "EventUnslow.h"
#include "WorldManager.h"
#include "gameUtility.h"
#include "utility.h"

Insect::Insect() {
  setType("Insect");
  setCollisionResponse(gw::OVERLAP);
  setPosition(displayCenter());
}

std::string Insect::getColorAsString() const {
  switch (color) {
  case gw::RED:
    return "red";
  case gw::GREEN:
    return "green";
  case gw::YELLOW:
    return "yellow";
  case gw::BLUE:
    return "blue";
  case gw::MAGENTA:
    return "magenta";
  case gw::CYAN:
    return "cyan";
  case gw::BLACK:
  case gw::WHITE:
    break;
  }
  return "unknown";
}

int Insect::eventHandler(const gw::Event *p_e) {
  if (const auto *p_mouse = gw::eventAs<gw::EventMouse>(p_e, gw::MOUSE_EVENT))
    return handleMouse(*p_mouse);
  const std::string event_type = p_e->getType();
  if (event_type == gw::OUT_EVENT) {
    gw::WorldManager::getInstance().markForDelete(this);
    return 1;
  }
  if (event_type == SLOW_EVENT) {
    setSpeed(getSpeed() * 0.5f);
    return 1;
  }
  if (event_type == UNSLOW_EVENT) {
    setSpeed(getSpeed() + getSpeed());
    return 1;
  }
  return 0;
}

bool Insect::isPressedBy(const gw::EventMouse &event) const {
  if (event.getMouseAction() != gw::PRESSED)
    return false;
  const gw::Box probe(event.getMousePosition() + gw::Vector(-0.5f, -0.5f), 1, 1);
  return gw::boxesIntersect(gw::getWorldBox(this), probe);
}

/// An insect that is about to be deleted is not pinned any more (it has just left
/// the world, or the same press has just ended the game): the board would keep a
/// pointer to nothing.
int Insect::handleMouse(const gw::EventMouse &event) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  if (pinned || !pinnable || !isPressedBy(event) || world.isMarkedForDelete(this))
    return 0;
  pinned = true;
  playSound("PinBug");
  const EventPin pin(this);
  world.onEvent(&pin);
  return 1;
}

bool isInsectType(const std::string &type) {
  return type == BEE_TYPE || type == BUTTERFLY_TYPE || type == GLIDEWING_TYPE;
}
