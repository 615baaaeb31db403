#include "EventSlow.h"

EventSlow::EventSlow() {
  setType(SLOW_EVENT);
}
