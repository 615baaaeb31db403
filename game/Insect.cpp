#include "Insect.h"

#include "Assertion.h"
#include "EventMouse.h"
#include "EventOut.h"
#include "EventPin.h"
#include "EventSlow.h"
#include "EventUnslow.h"
#include "WorldManager.h"
#include "gameUtility.h"
#include "utility.h"

#include <cctype>

Insect::Insect() {
  setType("Insect");
  setCollisionResponse(gw::OVERLAP);
  setPosition(displayCenter());
}

std::string Insect::getColorAsString() const {
  const bool is_known =
      gw::isColorValid(color) && color != gw::BLACK && color != gw::WHITE;
  return is_known ? gw::definitionOf(color).name : "unknown";
}

void Insect::setTintedSprite() {
  std::string kind = getType();
  kind.front() = static_cast<char>(std::tolower(kind.front()));
  const std::string label = kind + "color" + getColorAsString();
  loadTintedSprite("tazlet/sprites/" + kind + ".txt", label, color);
  setSprite(label);
}

bool Insect::isUnder(gw::Vector pointer) const {
  const gw::Box probe(pointer + gw::Vector(-0.5f, -0.5f), 1, 1);
  return gw::boxesIntersect(gw::getWorldBox(this), probe);
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
  return event.getMouseAction() == gw::PRESSED && isUnder(event.getMousePosition());
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

Insect &asInsect(gw::Object *p_o) {
  auto *p_insect = dynamic_cast<Insect *>(p_o);
  GW_ASSERT(p_insect, "an object that is no insect is on the board or in the row");
  return *p_insect;
}
