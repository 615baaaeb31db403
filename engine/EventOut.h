#pragma once

#include "Event.h"

namespace gw {

/// The type of an `EventOut`.
inline const std::string OUT_EVENT = "gw::out";

/// Tells an object, and only that one, that its move takes it from inside the
/// world to outside. That goes by its position, not by its box: what is wide is half
/// out of sight by then. It comes before the move is made: a position that the handler
/// sets is lost. Who wants to come in again on the other side does so in a step event,
/// when the position is outside:
///
/// ```cpp
/// if (p_e->getType() == gw::STEP_EVENT && getPosition().getX() > 128)
///   setPosition(getPosition() + gw::Vector(-128, 0));
/// ```
class EventOut : public Event {
public:
  /// Has no fields of its own.
  EventOut();
};

} // namespace gw
