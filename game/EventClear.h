#pragma once

#include "Event.h"
#include "ObjectList.h"

#include <string>

inline const std::string CLEAR_EVENT = "clear";

/// The target row has been completed. Sent by the sequence; the pin board takes
/// its newest insects off, the score pays, the spawners speed up.
class EventClear : public gw::Event {
public:
  /// @param completed the target insects of the row
  explicit EventClear(gw::ObjectList completed);

  /// A copy of the list; the insects are the sequence's.
  gw::ObjectList getSequence() const { return sequence; }

private:
  gw::ObjectList sequence;
};
