#include "Clock.h"

#include <ctime>

namespace gw {

namespace {

long long monotonicMicroseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<long long>(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
}

} // namespace

Clock::Clock() : previous_time(monotonicMicroseconds()) {
}

long long Clock::delta() {
  const long long now = monotonicMicroseconds();
  const long long elapsed = now - previous_time;
  previous_time = now;
  return elapsed;
}

long long Clock::split() const {
  return monotonicMicroseconds() - previous_time;
}

} // namespace gw
