#pragma once

#include <string>

namespace gw {

class Event;

/// Base of the engine's six singletons: a name, whether the manager is started, and the
/// delivery of events to all objects. The game manager starts and stops the others. A
/// derived manager calls the base's `startUp` and `shutDown` when its own work is done.
class Manager {
public:
  Manager() = default;
  virtual ~Manager() = default;
  Manager(const Manager &) = delete;
  Manager &operator=(const Manager &) = delete;

  /// Marks the manager started. @return 0; a derived manager -1 on failure.
  virtual int startUp();

  /// Marks the manager not started.
  virtual void shutDown();

  /// Between a start-up that succeeded and the shut-down.
  bool isStarted() const { return is_started; }

  /// The manager's name. @{
  void setType(std::string new_type) { type = new_type; }
  std::string getType() const { return type; } ///@}

  /// Hands the event to every object in the world, in list order, before it
  /// returns. Works on a copy of the list: an object created meanwhile does not
  /// hear this event, and a handler may broadcast in turn.
  /// @param p_event not null; stays the caller's
  /// @return how many objects it was delivered to
  int onEvent(const Event *p_event) const;

private:
  std::string type = "Manager";
  bool is_started = false;
};

} // namespace gw
