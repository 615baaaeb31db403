#pragma once

#include <string>

namespace gw {

/// The type of an event that was given none.
inline const std::string UNDEFINED_EVENT = "gw::undefined";

/// Base of all events. An event is a short-lived record: its sender builds it,
/// delivers it (`Manager::onEvent`, or directly) and drops it. A handler tells
/// events apart by their type string and must not keep the pointer.
class Event {
public:
  Event() = default;
  virtual ~Event() = default;

  /// What handlers tell events apart by. @{
  void setType(std::string new_type) { type = new_type; }
  std::string getType() const { return type; } ///@}

private:
  std::string type = UNDEFINED_EVENT;
};

/// The event as a `T`: a handler starts with this when it needs the fields of `T`.
/// @return null unless the type string is `type` and the event really is a `T`; an event
/// whose type was changed by hand is ignored, not misread
template <class T> const T *eventAs(const Event *p_e, const std::string &type) {
  return p_e->getType() == type ? dynamic_cast<const T *>(p_e) : nullptr;
}

} // namespace gw
