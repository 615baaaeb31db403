#include "EventStep.h"

namespace gw {

EventStep::EventStep(int init_step_count) : step_count(init_step_count) {
  setType(STEP_EVENT);
}

} // namespace gw
