#pragma once

#include "Event.h"

#include <string>

inline const std::string UNSLOW_EVENT = "unslow";

/// The slow-down is over. Sent by the slower: insects double their speed, the
/// spawners release at full speed again.
class EventUnslow : public gw::Event {
public:
  EventUnslow();
};
