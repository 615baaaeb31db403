#include "EventPin.h"

EventPin::EventPin(Insect *p_insect) : pinnedInsect(p_insect) {
  setType(PIN_EVENT);
}
