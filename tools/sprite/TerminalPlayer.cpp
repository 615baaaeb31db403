#include "TerminalPlayer.h"

#include "GameManager.h"
#include "utility.h"

#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <thread>
#include <tuple>
#include <vector>

namespace {

volatile std::sig_atomic_t end_signal = 0;  ///< that asks to end; 0 while none does
volatile std::sig_atomic_t stop_signal = 0; ///< that asks to stop for a while

void onSignal(int number) {
  (number == SIGTSTP ? stop_signal : end_signal) = number;
}

/// Before the screen is taken: it must be given back.
void catchInterrupts() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP})
    std::signal(number, onSignal);
}

/// Lets a signal that was caught do what it does to other programs.
void takeItsCourse(int number) {
  std::signal(number, SIG_DFL);
  std::raise(number);
}

void write(const std::string &text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

std::vector<std::string> rowsOf(const gw::Sprite &sprite, int frame) {
  const std::string characters = sprite.getFrame(frame).getString();
  const auto width = static_cast<std::size_t>(sprite.getWidth());
  std::vector<std::string> rows;
  for (std::size_t start = 0; start < characters.size(); start += width)
    rows.push_back(characters.substr(start, width));
  return rows;
}

/// A row for a terminal: control characters are blank, as in the game; what is not
/// ASCII is a box there and a question mark here.
std::string visible(std::string row) {
  for (char &ch : row) {
    const auto code = static_cast<unsigned char>(ch);
    if (code >= 127 || code < 32)
      ch = code > 127 ? '?' : ' ';
  }
  return row;
}

/// Begins bright characters of that colour on black. The colours have the values
/// that terminals give them. (Black is a dark grey there and can be seen.)
std::string colorCode(gw::Color color) {
  return "\033[1;40;" + std::to_string(90 + color) + "m";
}

const std::string COLOR_END = "\033[0m";

struct Size {
  std::size_t columns;
  std::size_t rows;

  bool operator!=(const Size &other) const {
    return columns != other.columns || rows != other.rows;
  }
};

Size terminalSize() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 ||
      size.ws_row == 0)
    return {80, 24};
  return {size.ws_col, size.ws_row};
}

/// Draws over the whole terminal: lines from the top, and one at the bottom. What
/// does not fit is left out.
void drawScreen(const std::vector<std::string> &lines, const std::string &color,
                const std::string &last_line, Size size) {
  std::string text = "\033[H";
  for (std::size_t i = 0; i < std::min(lines.size(), size.rows - 1); i++)
    // Cleared first: behind a full line it would take away the last character.
    text += "\033[K" + color + lines[i].substr(0, size.columns) + COLOR_END + "\r\n";
  text += "\033[J\033[" + std::to_string(size.rows) + ";1H";
  text += last_line.substr(0, size.columns);
  write(text);
}

std::string statusLine(const std::string &filename, const gw::Sprite &sprite, int frame,
                       Size size) {
  const std::string name = std::filesystem::path(filename).filename();
  std::string line = gw::printable(name) + ": " + std::to_string(sprite.getWidth()) +
                     " x " + std::to_string(sprite.getHeight()) + ", frame " +
                     std::to_string(frame) + " of 0 to " +
                     std::to_string(sprite.getFrameCount() - 1) + ", slowdown " +
                     std::to_string(sprite.getSlowdown());
  if (static_cast<std::size_t>(sprite.getWidth()) > size.columns ||
      static_cast<std::size_t>(sprite.getHeight()) > size.rows - 1)
    line += ", cut off by the terminal";
  return line + ". Ctrl-C ends.";
}

/// Takes the whole terminal while it lives, and gives it back as it was: at its end,
/// which Ctrl-\ brings about, too, and while Ctrl-Z stops the program.
class Screen {
public:
  Screen() {
    std::signal(SIGQUIT, onSignal);
    if (std::signal(SIGTSTP, onSignal) == SIG_IGN) // its shell knows no fg
      std::signal(SIGTSTP, SIG_IGN);
    take();
  }

  ~Screen() {
    giveBack();
    if (end_signal == SIGQUIT)
      takeItsCourse(SIGQUIT);
  }

  Screen(const Screen &) = delete;
  Screen &operator=(const Screen &) = delete;

  /// The next step is the first one.
  void restart() { step = 0; }

  /// Draws what belongs to this step, if it is not there already.
  void show(const std::string &filename, const LoadedSprite &loaded) {
    if (stop_signal != 0)
      stop();
    const Size size = terminalSize();
    const int frame = loaded.sprite ? frameNow(*loaded.sprite) : 0;
    if (step == 0 || frame != shown_frame || size != shown_size)
      draw(filename, loaded, frame, size);
    step++;
  }

private:
  void take() {
    // To change its modes, even to what they are, stops a program in the background
    // until it is in front.
    termios modes{};
    if (tcgetattr(STDOUT_FILENO, &modes) == 0)
      tcsetattr(STDOUT_FILENO, TCSADRAIN, &modes);
    write("\033[?1049h\033[?25l");
  }

  void giveBack() { write("\033[?25h\033[?1049l"); }

  void stop() {
    giveBack();
    stop_signal = 0;
    takeItsCourse(SIGTSTP); // comes back when the program is to go on
    std::signal(SIGTSTP, onSignal);
    take();
    shown_size = {};
  }

  int frameNow(const gw::Sprite &sprite) const {
    const int slowdown = sprite.getSlowdown();
    return slowdown == 0 ? 0 : static_cast<int>(step / slowdown % sprite.getFrameCount());
  }

  void draw(const std::string &filename, const LoadedSprite &loaded, int frame,
            Size size) {
    if (loaded.sprite) {
      std::vector<std::string> rows = rowsOf(*loaded.sprite, frame);
      std::transform(rows.begin(), rows.end(), rows.begin(), visible);
      drawScreen(rows, colorCode(loaded.sprite->getColor()),
                 statusLine(filename, *loaded.sprite, frame, size), size);
    } else {
      drawScreen(loaded.messages, "", "Waiting for the next save. Ctrl-C ends.", size);
    }
    shown_frame = frame;
    shown_size = size;
  }

  long long step = 0;
  int shown_frame = 0;
  Size shown_size{};
};

/// Tells one state of a file from another; all the same while it is missing.
struct Stamp {
  explicit Stamp(const std::string &filename) {
    struct stat status {};
    if (stat(filename.c_str(), &status) == 0)
      values = {status.st_ino, status.st_size, status.st_mtim.tv_sec,
                status.st_mtim.tv_nsec};
  }

  std::tuple<ino_t, off_t, time_t, long> values{};
};

/// Calls `action` in every step of the game until the user interrupts, or nobody
/// reads standard output any more.
template <class Action> void inEveryStep(Action action) {
  using Clock = std::chrono::steady_clock;
  Clock::time_point next = Clock::now();
  while (end_signal == 0 && !std::ferror(stdout)) {
    action();
    // Time that the whole process slept is not made up for.
    next =
        std::max(next + std::chrono::milliseconds(gw::FRAME_TIME_DEFAULT), Clock::now());
    std::this_thread::sleep_until(next);
  }
}

void printLoaded(const LoadedSprite &loaded) {
  if (loaded.sprite)
    printFrames(*loaded.sprite);
  std::string text;
  for (const std::string &message : loaded.messages)
    text += message + "\n";
  write(text);
}

} // namespace

bool isTerminal() {
  return isatty(STDOUT_FILENO) == 1;
}

void printFrame(const gw::Sprite &sprite, int frame) {
  const bool terminal = isTerminal();
  std::string text;
  for (const std::string &row : rowsOf(sprite, frame))
    text +=
        (terminal ? colorCode(sprite.getColor()) + visible(row) + COLOR_END : row) + "\n";
  write(text);
}

void printFrames(const gw::Sprite &sprite) {
  for (int frame = 0; frame < sprite.getFrameCount(); frame++)
    printFrame(sprite, frame);
}

void play(const std::string &filename, const LoadedSprite &loaded) {
  catchInterrupts();
  Screen screen;
  inEveryStep([&] { screen.show(filename, loaded); });
}

void watch(const std::string &filename, SpriteLoader &loader) {
  catchInterrupts();
  // The stamp first: a save while the file is being read is another change.
  Stamp stamp(filename);
  LoadedSprite loaded = loader.load(filename);
  std::optional<Screen> screen;
  if (isTerminal())
    screen.emplace();
  else
    printLoaded(loaded);
  inEveryStep([&] {
    const Stamp now(filename);
    if (now.values != stamp.values) {
      stamp = now;
      loaded = loader.load(filename);
      if (screen)
        screen->restart();
      else
        printLoaded(loaded);
    }
    if (screen)
      screen->show(filename, loaded);
  });
}
