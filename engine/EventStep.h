#pragma once

#include "Event.h"

namespace gw {

/// The type of an `EventStep`.
inline const std::string STEP_EVENT = "gw::step";

/// Opens every step of the game loop; every object hears it.
class EventStep : public Event {
public:
  /// Without an argument: the count is 0. @{
  EventStep() : EventStep(0) {}
  explicit EventStep(int init_step_count); ///@}

  /// Steps completed before this one: the first step carries 0. @{
  void setStepCount(int new_step_count) { step_count = new_step_count; }
  int getStepCount() const { return step_count; } ///@}

private:
  int step_count;
};

} // namespace gw
