#include "EventClear.h"

EventClear::EventClear(gw::ObjectList completed) : sequence(completed) {
  setType(CLEAR_EVENT);
}
