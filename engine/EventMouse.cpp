#include "EventMouse.h"

namespace gw {

EventMouse::EventMouse() {
  setType(MOUSE_EVENT);
}

} // namespace gw
