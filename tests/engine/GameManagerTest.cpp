#include "GameManager.h"
#include "EngineTest.h"
#include "EventStep.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <ctime>

namespace {

using Sleeps = std::vector<long long>;

/// While one exists, its thread lives by it: the monotonic clock stands still but for
/// `pass`, and a sleep returns at once, after its time has passed here. This makes the
/// pace of the loop exact on a machine of any speed. All times in microseconds.
struct FakeTime {
  FakeTime() { current = this; }
  ~FakeTime() { current = nullptr; }
  void pass(long long microseconds) { now += microseconds * 1000; }

  static inline thread_local FakeTime *current = nullptr;
  long long now = 999999900; ///< nanoseconds
  long long oversleep = 0;   ///< added to every sleep; may be negative
  Sleeps sleeps;             ///< asked for
};

constexpr long long SECOND = 1000000000; // nanoseconds

} // namespace

// These two stand in front of the C library's in this program.

extern "C" int clock_gettime(clockid_t clock, timespec *p_time) noexcept {
  const FakeTime *p_fake = FakeTime::current;
  if (!p_fake || clock != CLOCK_MONOTONIC)
    return static_cast<int>(syscall(SYS_clock_gettime, clock, p_time));
  *p_time = {p_fake->now / SECOND, p_fake->now % SECOND};
  return 0;
}

extern "C" int nanosleep(const timespec *p_duration, timespec *p_rest) {
  FakeTime *p_fake = FakeTime::current;
  if (!p_fake)
    return static_cast<int>(syscall(SYS_nanosleep, p_duration, p_rest));
  p_fake->sleeps.push_back((p_duration->tv_sec * SECOND + p_duration->tv_nsec) / 1000);
  p_fake->pass(p_fake->sleeps.back() + p_fake->oversleep);
  return p_fake->oversleep < 0 ? -1 : 0;
}

TEST_F(EngineTest, AStepSleepsForWhatIsLeftAndCarriesItsLateness) {
  const struct {
    const char *what;
    long long work, lateness, oversleep;
    Sleeps asked_for;
    long long carried;
  } cases[] = {
      {"slept too long", 10000, 0, 400, {23000}, 400},
      {"late by an earlier sleep", 10000, 400, 0, {22600}, 0},
      {"sleep was interrupted", 10000, 0, -5000, {23000}, 0},
      {"too much work", 40000, 0, 400, {}, 7000},
      {"paying it back", 10000, 7000, 0, {16000}, 0},
      {"paying back a part", 10000, 50000, 0, {}, 27000},
      {"just used up", 33000, 0, 400, {}, 0},
      {"used up but for one", 32999, 0, 0, {1}, 0},
      {"stopped for two hours", 7200000000, 1000, 0, {}, 7199968000},
  };
  FakeTime time;
  long long work = 0;
  auto *p_worker = new Recorder; // works half in its step event, half while drawing
  p_worker->onEvent = [&](const gw::Event &) { time.pass(work / 2); };
  p_worker->onDraw = [&] { time.pass(work - work / 2); };
  for (const auto &c : cases) {
    work = c.work;
    time.oversleep = c.oversleep;
    time.sleeps.clear();
    EXPECT_EQ(gw::GameManager::getInstance().runStep(c.lateness), c.carried) << c.what;
    EXPECT_EQ(time.sleeps, c.asked_for) << c.what;
  }
}

TEST_F(EngineTest, TheStepThatEndsTheGameIsCompletedAndIsTheLast) {
  gw::GameManager &game = gw::GameManager::getInstance();
  const int first = game.getStepCount();
  FakeTime time;
  std::vector<int> numbers;
  auto *p_recorder = new Recorder;
  p_recorder->onEvent = [&](const gw::Event &event) {
    numbers.push_back(dynamic_cast<const gw::EventStep &>(event).getStepCount());
    time.pass(numbers.size() == 1 ? 40000 : 10000);
    game.setGameOver(numbers.size() == 3);
  };
  game.setGameOver(false);
  game.run();
  EXPECT_EQ(numbers, (std::vector<int>{first, first + 1, first + 2}));
  EXPECT_EQ(time.sleeps, (Sleeps{16000, 23000}))
      << "the first step's lateness is carried";
}
