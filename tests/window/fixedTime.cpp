#include <cstdlib>
#include <ctime>

/// Preloaded, this makes the calendar stand still at GLIDEWING_TEST_TIME (seconds):
/// the game is seeded with the time, so every run of a test is the same game.
extern "C" std::time_t time(std::time_t *p_result) noexcept {
  const char *fixed = std::getenv("GLIDEWING_TEST_TIME");
  const std::time_t now = fixed ? std::atol(fixed) : 0;
  if (p_result)
    *p_result = now;
  return now;
}
