#pragma once

#include "Event.h"

namespace gw {

/// The type of an `EventOut`.
inline const std::string OUT_EVENT = "gw::out";

/// Tells an object, and only that one, that its move takes it from inside the
/// world to outside.
class EventOut : public Event {
public:
  /// Has no fields of its own.
  EventOut();
};

} // namespace gw
