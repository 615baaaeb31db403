#include "EventUnslow.h"

EventUnslow::EventUnslow() {
  setType(UNSLOW_EVENT);
}
