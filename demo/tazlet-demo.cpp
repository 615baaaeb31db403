/// Plays tazlet by itself: for soak runs, measurements and pictures, and to record
/// a game and play it again.

#include "AutoPlayer.h"
#include "Digest.h"
#include "GameManager.h"
#include "LogManager.h"
#include "Random.h"
#include "Recording.h"
#include "ReplayPlayer.h"
#include "Witness.h"
#include "tazlet.h"
#include "utility.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr int DIGEST_STEPS = 100; ///< between two digests

struct Options {
  unsigned seed = 1;
  std::optional<long long> steps = 5000;             ///< none: until interrupted
  std::optional<Profile> profile = Profile::skilled; ///< none: a person
  bool window = false;
  bool digest = false;
  std::string record_file;
  std::string replay_file;
};

int fail(const std::string &reason) {
  std::fprintf(stderr, "tazlet-demo: %s\n", gw::printable(reason).c_str());
  return 1;
}

volatile std::sig_atomic_t interrupted = 0;

void onInterrupt(int) {
  interrupted = 1;
}

/// @return whether to go on; else `status` is the process's
bool readOptions(int argc, char **argv, Options &options, int &status) {
  CLI::App app("Plays tazlet by itself.", "tazlet-demo");
  app.failure_message([](const CLI::App *, const CLI::Error &error) {
    return gw::printable(error.what()) + "\nRun with --help for more information.\n";
  });
  long long steps = *options.steps;
  std::string profile = "skilled";
  std::vector<std::string> names = {"human"};
  names.reserve(1 + PROFILES.size());
  for (const NamedProfile &named : PROFILES)
    names.emplace_back(named.name);
  bool headless = false;
  app.add_option("--seed", options.seed, "of the game and of the player")
      ->capture_default_str();
  app.add_option("--steps", steps, "33 ms each; 0 goes on until interrupted")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
  app.add_option("--profile", profile, "how to play; \"human\" leaves it to you")
      ->check(CLI::IsMember(names))
      ->capture_default_str();
  auto *p_window =
      app.add_flag("--window", options.window, "in a window, at the game's pace");
  app.add_flag("--headless", headless, "without a display, as fast as it goes (default)")
      ->excludes(p_window);
  auto *p_record = app.add_option("--record", options.record_file,
                                  "write seed and input events to this file");
  app.add_option("--replay", options.replay_file,
                 "play that recording again; it brings seed and steps")
      ->excludes(p_record);
  app.add_flag("--digest", options.digest,
               "print a hash of the game's state every 100 steps and at the end");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError &error) {
    status = app.exit(error);
    return false;
  }
  if (steps == 0)
    options.steps.reset();
  else
    options.steps = steps;
  options.profile.reset();
  for (const NamedProfile &named : PROFILES)
    if (profile == named.name)
      options.profile = named.profile;
  if (!options.profile && !options.window) {
    status = fail("a person needs --window");
    return false;
  }
  return true;
}

/// The engine, with a window or without. @return whether it is running
bool startEngine(bool window) {
  gw::GameManager &game = gw::GameManager::getInstance();
  if ((window ? game.startUp() : game.startUpHeadless()) != 0)
    return false;
  gw::LogManager &log = gw::LogManager::getInstance();
  log.setLogLevel(gw::ALL);
  log.setFlush(true);
  return true;
}

void printDigest(long long step) {
  std::printf("step %lld digest %016" PRIx64 "\n", step, digestOfGame());
  std::fflush(stdout); // who reads along knows how far the game is
}

/// Says every few seconds how far a long run is.
class Progress {
public:
  explicit Progress(std::optional<long long> steps)
      : total(steps ? " of " + std::to_string(*steps) : "") {}

  void report(long long step) {
    constexpr long long STEPS_BETWEEN_LOOKS = 1000;
    constexpr std::chrono::seconds PAUSE(5);
    if (step % STEPS_BETWEEN_LOOKS != 0 || Clock::now() < last + PAUSE)
      return;
    const std::chrono::duration<double> elapsed = Clock::now() - last;
    std::fprintf(stderr, "tazlet-demo: %lld%s steps, %.0f a second\n", step,
                 total.c_str(), static_cast<double>(step - last_step) / elapsed.count());
    last = Clock::now();
    last_step = step;
  }

private:
  using Clock = std::chrono::steady_clock;

  std::string total; ///< in words, if there is one
  Clock::time_point last = Clock::now();
  long long last_step = 0;
};

/// Runs the game until it is over, interrupted or long enough, or until what it is to
/// write cannot be written. @param p_writer null for none @return steps
long long run(const Options &options, const RecordingWriter *p_writer) {
  gw::GameManager &game = gw::GameManager::getInstance();
  Progress progress(options.steps);
  long long adjust_time = 0;
  long long step = 0;
  while (!game.getGameOver() && !interrupted && !std::ferror(stdout) &&
         (!p_writer || p_writer->isGood()) && step != options.steps) {
    adjust_time = game.runStep(options.window ? adjust_time : gw::NEVER_SLEEP);
    step++;
    if (options.digest && step % DIGEST_STEPS == 0)
      printDigest(step);
    progress.report(step);
  }
  return step;
}

void printAchievements(long long steps, const Achievements &reached) {
  std::printf("steps %lld\n", steps);
  std::printf("games %d\n", reached.games);
  std::printf("best score %d\n", reached.best_score);
  std::printf("rows sold %d\n", reached.rows_sold);
  std::printf("overlapping slow-downs %d\n", reached.overlapping_slow_downs);
  std::printf("boards overflowed while a row completed %d\n", reached.sold_on_full_board);
  if (reached.games == 0)
    std::printf("This run reached nothing: no game was played.\n");
  else if (reached.best_score == 0)
    std::printf("This run reached nothing: no point was made.\n");
}

/// Plays a game, once the engine is started. @param recording to be played again
/// @param p_writer null for none
void play(const Options &options, const std::optional<Recording> &recording,
          RecordingWriter *p_writer) {
  std::signal(SIGINT, onInterrupt);
  gw::srand(options.seed);
  loadResources();
  populateGame();
  // Always two objects, so that a replay has the same ids as its recording.
  if (recording)
    new ReplayPlayer(*recording);
  else if (options.profile)
    new AutoPlayer(*options.profile, options.seed);
  else
    new ReplayPlayer(Recording()); // leaves it to the person
  const auto *p_witness = new Witness(p_writer);

  const long long steps = run(options, p_writer);
  if (options.digest && steps % DIGEST_STEPS != 0)
    printDigest(steps);
  printAchievements(steps, p_witness->getAchievements());
  if (p_writer)
    p_writer->finish(static_cast<int>(steps));
}

/// Reads the command line and does what it says. @return the exit status
int run(int argc, char **argv) {
  Options options;
  int status = 0;
  if (!readOptions(argc, argv, options, status))
    return status;
  std::optional<Recording> recording;
  if (!options.replay_file.empty()) {
    std::string error;
    recording = readRecording(options.replay_file, error);
    if (!recording)
      return fail(error);
    options.seed = recording->seed;
    options.steps = recording->steps;
  }
  if (!startEngine(options.window))
    return 1;
  // Not before: a file of this name stays as it is when nothing starts.
  std::optional<RecordingWriter> writer;
  if (!options.record_file.empty())
    writer.emplace(options.record_file, options.seed);
  if (!writer || writer->isGood())
    play(options, recording, writer ? &*writer : nullptr);
  gw::GameManager::getInstance().shutDown();
  return !writer || writer->isGood() ? 0
                                     : fail(options.record_file + ": cannot be written");
}

} // namespace

int main(int argc, char **argv) {
  const int status = run(argc, argv);
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
    return fail("standard output cannot be written");
  return status;
}
