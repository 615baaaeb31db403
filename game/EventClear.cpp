#include "EventClear.h"

EventClear::EventClear(gw::ObjectList completed) {
  setType(CLEAR_EVENT);
  sequence = completed;
}
