#include "EventKeyboard.h"

namespace gw {

EventKeyboard::EventKeyboard() {
  setType(KEYBOARD_EVENT);
}

} // namespace gw
