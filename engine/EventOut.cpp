#include "EventOut.h"

namespace gw {

EventOut::EventOut() {
  setType(OUT_EVENT);
}

} // namespace gw
