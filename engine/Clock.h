#pragma once

namespace gw {

/// A stopwatch on the platform's monotonic clock, in microseconds. The game loop measures
/// steps and sleep with it. Game code counts steps and never reads a clock.
class Clock {
public:
  /// Starts the watch.
  Clock();

  /// Microseconds since the last restart; restarts the watch.
  long long delta();

  /// Microseconds since the last restart; the watch runs on.
  long long split() const;

private:
  long long previous_time; ///< microseconds on the monotonic clock
};

} // namespace gw
