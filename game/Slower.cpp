#include "Slower.h"

#include "EventSlow.h"
#include "EventStep.h"
#include "EventUnslow.h"
#include "LogManager.h"
#include "WorldManager.h"

namespace {

constexpr int IDLE = -1;

} // namespace

Slower::Slower() : slowCountdown(IDLE) {
  setType(TYPE);
}

int Slower::eventHandler(const gw::Event *p_e) {
  const std::string event_type = p_e->getType();
  if (event_type == SLOW_EVENT)
    slowCountdown = SLOW_DOWN_STEPS - 1; // the step that finds 0 is the last one
  else if (event_type == gw::STEP_EVENT)
    countDown();
  else
    return 0;
  return 1;
}

void Slower::countDown() {
  if (slowCountdown == IDLE)
    return;
  if (slowCountdown > 0) {
    slowCountdown--;
    return;
  }
  const EventUnslow unslow;
  gw::WorldManager::getInstance().onEvent(&unslow);
  gw::LogManager::getInstance().writeLog(gw::DEBUG, "Sent an Unslow event");
  slowCountdown = IDLE;
}
