#include "Clock.h"

#include <chrono>

namespace gw {

namespace {

long long monotonicMicroseconds() {
  using namespace std::chrono;
  return duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count();
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
