#include "Clock.h"
#include "DisplayManager.h"
#include "Game.h"
#include "GameManager.h"
#include "InputManager.h"
#include "LogManager.h"
#include "Random.h"
#include "ResourceManager.h"
#include "ScreenText.h"
#include "internal/Digest.h"
#include "internal/Options.h"
#include "internal/Overlay.h"
#include "internal/Recording.h"
#include "internal/Terminal.h"
#include "internal/TerminalState.h"
#include "internal/findExecutable.h"
#include "utility.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cinttypes>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <optional>
#include <thread>
#include <utility>

namespace gw {

namespace {

constexpr int INTERRUPTS[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
};

volatile std::sig_atomic_t interrupted = 0;

/// The first one ends the game as a person does; the next one ends the process.
void onInterrupt(int number) {
  if (interrupted != 0) {
    releaseTerminal();
    std::signal(number, SIG_DFL);
    std::raise(number);
  }
  interrupted = 1;
}

/// What whoever started us has us ignore, as nohup does, stays ignored.
void catchInterrupts() {
  for (const int number : INTERRUPTS)
    if (std::signal(number, onInterrupt) == SIG_IGN)
      std::signal(number, SIG_IGN);
}

/// Says every few seconds how far a long run is.
class Progress {
public:
  Progress(const Game &init_game, std::optional<long long> steps)
      : game(init_game), total(steps ? " of " + std::to_string(*steps) : "") {}

  void report(long long step) {
    constexpr long long STEPS_BETWEEN_LOOKS = 1000;
    constexpr std::chrono::seconds PAUSE(5);
    if (step % STEPS_BETWEEN_LOOKS != 0 || Time::now() < last + PAUSE)
      return;
    const std::chrono::duration<double> elapsed = Time::now() - last;
    const double speed = static_cast<double>(step - last_step) / elapsed.count();
    complain(game, std::to_string(step) + total + " steps, " +
                       std::to_string(std::llround(speed)) + " a second");
    last = Time::now();
    last_step = step;
  }

private:
  using Time = std::chrono::steady_clock;

  const Game &game;
  std::string total; ///< in words, if there is one
  Time::time_point last = Time::now();
  long long last_step = 0;
};

/// One run of a game, as the options want it.
class Run {
public:
  Run(const Game &init_game, Options init_options,
      std::optional<Recording> init_recording)
      : game(init_game), options(std::move(init_options)),
        recording(std::move(init_recording)), seed(decideSeed()), limit(decideLimit()) {}

  /// @return the process's exit status
  int run() {
    catchInterrupts();
    if (!startEngine())
      return 1;
    // Not before: a file of this name stays as it is when nothing starts.
    if (!options.record_file.empty())
      writer.emplace(options.record_file, game.name, game.version, seed);
    if (canWrite())
      play();
    GameManager::getInstance().shutDown();
    if (!canWrite())
      fail(options.record_file + ": cannot be written");
    return status;
  }

private:
  bool isPlayedByPerson() const { return !recording && options.player == HUMAN; }
  bool isHeadless() const { return options.place == Place::headless; }
  bool canWrite() const { return !writer || writer->isGood(); }

  unsigned decideSeed() const {
    if (recording)
      return recording->seed;
    const bool is_by_chance = isPlayedByPerson() && !isHeadless();
    return options.seed.value_or(is_by_chance ? static_cast<unsigned>(std::time(nullptr))
                                              : 1u);
  }

  std::optional<long long> decideLimit() const {
    constexpr long long USUAL_STEPS = 5000;
    std::optional<long long> steps = options.steps;
    if (!steps && isHeadless() && !recording)
      steps = USUAL_STEPS;
    if (recording)
      return std::min<long long>(steps && *steps > 0 ? *steps : recording->steps,
                                 recording->steps);
    return steps && *steps > 0 ? steps : std::nullopt;
  }

  void fail(const std::string &reason) {
    complain(game, reason);
    status = 1;
  }

  bool startEngine() const {
    GameManager &engine = GameManager::getInstance();
    LogManager &log = LogManager::getInstance();
    log.setLogLevel(ALL);
    log.setFlush(true);
    if (options.place == Place::window)
      return engine.startUp() == 0;
    return engine.startUpHeadless(options.place == Place::terminal) == 0;
  }

  void play() {
    DisplayManager &display = DisplayManager::getInstance();
    display.setTextKept(options.place == Place::terminal || options.digest ||
                        options.screen || options.boxes || writer || recording);
    if (options.boxes)
      display.setOverlay([this] { drawBoxes(); });
    InputManager::getInstance().setFilter(
        [this](const Event &event, bool is_posted) { return hear(event, is_posted); });
    if (options.place == Place::terminal && !(p_terminal = Terminal::open()))
      fail("the terminal cannot be opened"); // and no step is run
    srand(seed);
    if (game.loadResources)
      game.loadResources();
    ResourceManager::getInstance().warnOfSharedLabels();
    game.populateWorld();
    for (const NamedPlayer &named : game.players)
      if (!recording && named.name == options.player)
        p_player = named.make(seed);
    runSteps();
    p_terminal.reset();
    finish();
    p_player.reset();
    InputManager::getInstance().setFilter({});
    display.setOverlay({});
    display.setTextKept(false);
  }

  /// Runs the game until it is over, interrupted or long enough, or until something went
  /// wrong.
  void runSteps() {
    constexpr long long STOPPED = 1000000; // microseconds late: the process was stopped
    Progress progress(game, limit);
    long long lateness = 0;
    while (!GameManager::getInstance().getGameOver() && !interrupted && status == 0 &&
           std::ferror(stdout) == 0 && canWrite() && step != limit) {
      if (p_terminal && !waitForTerminal())
        return;
      postInput();
      clock.delta();
      lateness =
          GameManager::getInstance().runStep(isHeadless() ? NEVER_SLEEP : lateness);
      if (lateness > STOPPED)
        lateness = 0;
      step++;
      afterStep();
      if (isHeadless())
        progress.report(step);
    }
  }

  /// Holds the game while the terminal is too small.
  /// @return whether there is one still
  bool waitForTerminal() {
    while (!p_terminal->isClosed() && !p_terminal->fits() && !interrupted) {
      p_terminal->show({});
      p_terminal->takeInput(); // nobody hears of it; tells when the terminal is gone
      std::this_thread::sleep_for(std::chrono::milliseconds(FRAME_TIME_DEFAULT));
    }
    if (p_terminal->isClosed()) {
      p_terminal.reset();
      fail("the terminal was closed");
    }
    return p_terminal && !interrupted;
  }

  void postInput() {
    if (p_terminal)
      for (const InputEvent &event : p_terminal->takeInput()) {
        if (!recording)
          post(event);
        else if (event.kind == InputEvent::key_press)
          endReplay(event.key);
      }
    if (p_player)
      p_player->play(static_cast<int>(step));
    if (!recording)
      return;
    for (; next_event < recording->events.size() &&
           recording->events[next_event].step == step;
         next_event++)
      post(recording->events[next_event]);
  }

  /// Sees every event first. @return whether the game is to hear of it
  bool hear(const Event &event, bool is_posted) {
    if (recording && !is_posted) {
      const auto *p_key = eventAs<EventKeyboard>(&event, KEYBOARD_EVENT);
      // Not its release: it may have been pressed in a window that was there before.
      if (p_key && p_key->getKeyboardAction() == KEY_PRESSED)
        endReplay(p_key->getKey());
      return false;
    }
    if (writer)
      if (const auto input = toInputEvent(event, static_cast<int>(step)))
        writer->write(*input);
    return true;
  }

  /// A person who watches a replay has one key.
  static void endReplay(Keyboard::Key key) {
    if (key == Keyboard::Q)
      interrupted = 1;
  }

  void afterStep() {
    if (p_terminal)
      p_terminal->show(picture());
    const bool is_due = step % DIGEST_STEPS == 0;
    if (is_due && (options.digest || writer))
      giveDigest();
    if (recording)
      compareDigests();
    if (options.screen_step == step)
      print(toText(picture()));
  }

  void giveDigest() {
    const std::uint64_t digest = digestOf(game);
    if (writer)
      writer->write(RecordedDigest{static_cast<int>(step), digest});
    if (!options.digest)
      return;
    std::array<char, 64> line{};
    std::snprintf(line.data(), line.size(), "step %lld digest %016" PRIx64 "\n", step,
                  digest);
    print(line.data());
  }

  void compareDigests() {
    for (; next_digest < recording->digests.size() &&
           recording->digests[next_digest].steps <= step;
         next_digest++) {
      if (recording->digests[next_digest].digest == digestOf(game))
        last_equal = step;
      else
        fail(options.replay_file + ": at step " + std::to_string(step) +
             " the game is not in the state that was recorded" +
             (last_equal > 0 ? "; at step " + std::to_string(last_equal) + " it was"
                             : ""));
    }
  }

  /// What belongs to the end of a run, while all objects exist.
  void finish() {
    if (step % DIGEST_STEPS != 0 && (options.digest || writer))
      giveDigest();
    if (writer)
      writer->finish(static_cast<int>(step));
    if (options.screen && !options.screen_step)
      print(toText(picture()));
    if (options.screen_step && step < *options.screen_step)
      fail("the game ended at step " + std::to_string(step) +
           ", before that of --screen");
    if (recording && !interrupted && status == 0 && step < limit &&
        options.place != Place::window) // that one may have been closed
      fail(options.replay_file + ": the game ended at step " + std::to_string(step) +
           ", which was not recorded");
    std::fputs(held_output.c_str(), stdout);
    if (game.report)
      game.report();
  }

  /// What is printed while the terminal shows the game waits until that is over.
  void print(const std::string &text) {
    if (p_terminal) {
      held_output += text;
      return;
    }
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout); // who reads along knows how far the game is
  }

  /// The frame as text, with what is drawn over it.
  TextScreen picture() const {
    return options.boxes ? boxes : *DisplayManager::getInstance().getText();
  }

  void drawBoxes() {
    const DisplayManager &display = DisplayManager::getInstance();
    boxes = *display.getText();
    std::array<char, 64> line{};
    std::snprintf(line.data(), line.size(), "step %lld  %.2f ms", step + 1,
                  static_cast<double>(clock.split()) / 1000);
    drawOverlay(*display.getText(), line.data(),
                [this, &display](Vector where, const std::string &text, Color color) {
                  display.drawString(where, text, LEFT_JUSTIFIED, color);
                  boxes.drawRow(where, text, color);
                });
  }

  const Game &game;
  Options options;
  std::optional<Recording> recording; ///< to be played again
  unsigned seed;
  std::optional<long long> limit; ///< steps; none: until the game is over

  std::optional<RecordingWriter> writer;
  std::unique_ptr<Terminal> p_terminal; ///< null elsewhere
  std::unique_ptr<Player> p_player;     ///< null for a person and a replay
  std::string held_output;
  TextScreen boxes; ///< the last frame with boxes
  Clock clock;      ///< since the step began

  long long step = 0;          ///< completed ones
  std::size_t next_event = 0;  ///< of the recording
  std::size_t next_digest = 0; ///< of the recording
  long long last_equal = 0;    ///< step of the last digest that was as recorded
  int status = 0;
};

/// Goes to where the program is, if the font is there and not here: so are the rest of
/// the game's files.
void findAssets(const char *p_program) {
  const std::filesystem::path folder = findExecutable(p_program).parent_path();
  if (isRegularFile(FONT_FILE_DEFAULT) ||
      !isRegularFile((folder / FONT_FILE_DEFAULT).u8string()))
    return;
  std::error_code ignored;
  std::filesystem::current_path(folder, ignored);
}

/// @return the recording; nothing where it is none of this game, which is told
std::optional<Recording> openRecording(const Game &game, const std::string &filename) {
  std::string error;
  std::optional<Recording> recording = readRecording(filename, error);
  if (recording && recording->game != game.name) {
    error = filename + ": was recorded by another game, " + shortened(recording->game);
    recording.reset();
  }
  if (!recording)
    complain(game, error);
  else if (recording->version != game.version)
    complain(game, filename + ": was recorded by version " +
                       shortened(recording->version) + "; this is " + game.version);
  return recording;
}

int run(const Game &game, int argc, char *argv[]) {
  int status = 0;
  const std::optional<Options> options = readOptions(game, argc, argv, status);
  if (!options)
    return status;
  std::optional<Recording> recording;
  if (!options->replay_file.empty()) {
    recording = openRecording(game, options->replay_file);
    if (!recording)
      return 1;
  }
  findAssets(argv[0]);
  return Run(game, *options, std::move(recording)).run();
}

} // namespace

int runGame(const Game &game, int argc, char *argv[]) {
  const int status = run(game, argc, argv);
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
    return status;
  complain(game, "standard output cannot be written");
  return 1;
}

} // namespace gw
