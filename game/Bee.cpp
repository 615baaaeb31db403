#include "Bee.h"

#include "EventMouse.h"
#include "EventOut.h"
#include "EventSlow.h"
#include "LogManager.h"
#include "Score.h"
#include "WorldManager.h"
#include "gameUtility.h"

namespace {

constexpr int BEE_BONUS = 15; ///< points

} // namespace

Bee::Bee() {
  setType(TYPE);
  setSprite("Bee");
}

/// The slow event comes back to the bee that sends it, so a pressed bee pays
/// twice: once like every bee, once for the press.
int Bee::eventHandler(const gw::Event *p_e) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  if (const auto *p_mouse = gw::eventAs<gw::EventMouse>(p_e, gw::MOUSE_EVENT)) {
    if (!isPressedBy(*p_mouse))
      return 0;
    playSound("PinBug");
    const EventSlow slow;
    world.onEvent(&slow);
    gw::LogManager::getInstance().writeLog(gw::DEBUG, "Sent a SlowEvent");
    beeScore();
    world.markForDelete(this);
    return 1;
  }
  const std::string event_type = p_e->getType();
  if (event_type == SLOW_EVENT) {
    beeScore();
    world.markForDelete(this);
    return 1;
  }
  if (event_type == gw::OUT_EVENT) {
    world.markForDelete(this);
    return 1;
  }
  return 0;
}

void Bee::beeScore() {
  if (auto *p_score = findFirst<Score>())
    p_score->updateScore(BEE_BONUS);
}
