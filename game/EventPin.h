#pragma once

#include "Event.h"

#include <string>

class Insect;

inline const std::string PIN_EVENT = "pin";

/// The player has pinned an insect. Sent by the insect; the pin board takes it,
/// then the sequence checks it.
class EventPin : public gw::Event {
public:
  EventPin() : EventPin(nullptr) {}
  explicit EventPin(Insect *p_insect);

  /// Not owned; null when none was given.
  void setPinnedInsect(Insect *p_insect) { pinnedInsect = p_insect; }
  Insect *getPinnedInsect() const { return pinnedInsect; }

private:
  Insect *pinnedInsect;
};
