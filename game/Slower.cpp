#include "Slower.h"

#include "EventSlow.h"
#include "EventStep.h"
#include "EventUnslow.h"
#include "LogManager.h"
#include "WorldManager.h"

namespace {

constexpr int SLOW_STEPS = 33; ///< the unslow event goes out on the step after these
constexpr int IDLE = -1;

} // namespace

Slower::Slower() : slowCountdown(IDLE) {
  setType("Slower");
}

int Slower::eventHandler(const gw::Event *p_e) {
  const std::string event_type = p_e->getType();
  if (event_type == SLOW_EVENT)
    slowCountdown = SLOW_STEPS;
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
