#pragma once

#include "Event.h"

#include <string>

inline const std::string SLOW_EVENT = "slow";

/// The player has pressed a bee. Sent by that bee: all bees pay and go, the other
/// insects and what the spawners release halve their speed, the slower starts to
/// count.
class EventSlow : public gw::Event {
public:
  EventSlow();
};
