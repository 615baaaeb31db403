#pragma once

#include <benchmark/benchmark.h>

#include <chrono>

namespace bench {

/// Steps and frames that are not timed: the first ones load glyphs, compile shaders
/// and build trees.
constexpr int WARM_UP = 5;

inline void nothing() {
}

/// Times `step` alone, for a benchmark with `UseManualTime`; `prepare` runs before
/// each one, the warm-up's included.
template <class Step, class Prepare = void (*)()>
void timeSteps(benchmark::State &state, Step step, Prepare prepare = nothing) {
  using Clock = std::chrono::steady_clock;
  for (int i = 0; i < WARM_UP; i++) {
    prepare();
    step();
  }
  for (auto _ : state) {
    prepare();
    const Clock::time_point start = Clock::now();
    step();
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
  }
}

} // namespace bench
