// The terminal by way of ncurses, which sends only what has changed. All of ncurses is
// called by one thread: the caller's while the terminal is opened and closed, ours
// between.

#define NCURSES_NOMACROS // among them `move`, `clear` and `erase`

#include "DisplayManager.h"
#include "TextScreen.h"
#include "internal/Terminal.h"
#include "internal/TerminalState.h"
#include "internal/terminfo.h"

#include <curses.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace gw {

namespace {

using Time = std::chrono::steady_clock;

/// A key that has not repeated for so long has come up; see Terminal.h.
constexpr std::chrono::milliseconds KEY_TIME(100);

/// Reports of every movement of the pointer, with or without a button, in decimal
/// numbers. In the order in which terminals learned them. @{
constexpr const char *POINTER_ON = "\033[?1000h\033[?1003h\033[?1006h";
constexpr const char *POINTER_OFF = "\033[?1006l\033[?1003l\033[?1000l"; ///@}

/// How such a report begins, and what ncurses gives us for that.
constexpr const char *REPORT_START = "\033[<";
constexpr int REPORT_KEY = KEY_MAX + 1;

/// The engine's key for one of ncurses'; none for a character that no key is called by.
Keyboard::Key toKey(int code) {
  static const std::map<int, Keyboard::Key> KEYS = {{'\033', Keyboard::ESCAPE},
                                                    {'`', Keyboard::GRAVE},
                                                    {'0', Keyboard::NUM0},
                                                    {'-', Keyboard::MINUS},
                                                    {'+', Keyboard::PLUS},
                                                    {'\t', Keyboard::TAB},
                                                    {'\r', Keyboard::ENTER},
                                                    {'\n', Keyboard::ENTER},
                                                    {KEY_ENTER, Keyboard::ENTER},
                                                    {'.', Keyboard::PERIOD},
                                                    {',', Keyboard::COMMA},
                                                    {'/', Keyboard::SLASH},
                                                    {' ', Keyboard::SPACE},
                                                    {KEY_LEFT, Keyboard::LEFT_ARROW},
                                                    {KEY_RIGHT, Keyboard::RIGHT_ARROW},
                                                    {KEY_UP, Keyboard::UP_ARROW},
                                                    {KEY_DOWN, Keyboard::DOWN_ARROW}};
  const auto found = KEYS.find(code);
  if (found != KEYS.end())
    return found->second;
  const auto from = [code](int first, int last, Keyboard::Key key) {
    return code >= first && code <= last ? key + (code - first)
                                         : static_cast<int>(Keyboard::UNDEFINED_KEY);
  };
  return static_cast<Keyboard::Key>(std::max(
      {from('a', 'z', Keyboard::A), from('A', 'Z', Keyboard::A),
       from('1', '9', Keyboard::NUM1), from(KEY_F(1), KEY_F(12), Keyboard::F1)}));
}

/// What the pointer did, in the terminal's cells from its upper left one, which is 0, 0.
struct PointerReport {
  int buttons = 0; ///< of the report: button, movement, wheel
  int column = 0;
  int row = 0;
  bool is_release = false;
};

struct Size {
  int columns = 0;
  int rows = 0;

  bool fits() const { return columns >= TextScreen::WIDTH && rows >= TextScreen::HEIGHT; }
  bool operator!=(const Size &other) const {
    return columns != other.columns || rows != other.rows;
  }
};

Size sizeNow() {
  winsize size{};
  ioctl(STDOUT_FILENO, TIOCGWINSZ, &size);
  return {size.ws_col, size.ws_row};
}

class NcursesTerminal : public Terminal {
public:
  NcursesTerminal() {
    if (!openFiles())
      return;
    guardTerminal(POINTER_OFF + resettingText());
    // ncurses' own ways to end and to stop are not ours.
    struct sigaction stop {};
    sigaction(SIGTSTP, nullptr, &stop);
    p_screen = newterm(nullptr, p_drawn, stdin);
    sigaction(SIGTSTP, &stop, nullptr);
    if (p_screen)
      setUp();
  }

  ~NcursesTerminal() override {
    if (p_screen) {
      endwin();
      delscreen(p_screen);
    }
    if (p_drawn)
      std::fclose(p_drawn);
    releaseTerminal();
    for (const int file : {drawn, terminal})
      if (file >= 0)
        close(file);
  }

  /// Whether it was opened.
  bool isOpen() const { return p_screen != nullptr; }

  void show(const TextScreen &picture) override {
    if (takeStopRequest())
      stop();
    if (!unsent.empty() && !send())
      return; // it has not taken the last one yet
    draw(picture);
    collect();
    send();
  }

  std::vector<InputEvent> takeInput() override {
    std::vector<InputEvent> input;
    pollfd file = {STDIN_FILENO, POLLIN, 0};
    if (poll(&file, 1, 0) > 0) {
      int code = wgetch(p_input);
      is_closed = code == ERR; // there was something to be read: the end
      for (; code != ERR; code = wgetch(p_input))
        takeCode(code, input);
    }
    releaseKeys(input);
    return input;
  }

  bool fits() const override { return sizeNow().fits(); }
  bool isClosed() const override { return is_closed; }

private:
  bool openFiles() {
    // Another opening of the same terminal: what we set there is not set for the shell.
    const char *p_name = ttyname(STDOUT_FILENO);
    constexpr int HOW = O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    terminal = p_name ? ::open(p_name, HOW) : -1;
    if (terminal < 0)
      terminal = ::open("/dev/tty", HOW);
    std::array<int, 2> ends = {-1, -1};
    if (terminal < 0 || pipe(ends.data()) != 0)
      return false;
    drawn = ends[0];
    fcntl(drawn, F_SETFL, O_NONBLOCK);
#ifdef F_SETPIPE_SZ
    fcntl(drawn, F_SETPIPE_SZ, 1 << 20); // bytes; a picture from scratch has 10 to 70 kB
#endif
    p_drawn = fdopen(ends[1], "w");
    return p_drawn != nullptr;
  }

  void setUp() {
    cbreak();
    noecho();
    nonl();
    curs_set(0);
    start_color();
    for (std::size_t i = 0; i < COLORS.size(); i++)
      init_pair(pairOf(static_cast<Color>(i)), bright(static_cast<Color>(i)),
                COLOR_BLACK);
    p_input = newpad(1, 1); // reading from it draws nothing
    keypad(p_input, TRUE);
    nodelay(p_input, TRUE);
    define_key(REPORT_START, REPORT_KEY);
    set_escdelay(10); // milliseconds until ESC is a key and not the start of another
    refresh();
    unsent += POINTER_ON;
  }

  /// Adds to `unsent` what ncurses has drawn.
  void collect() {
    std::array<char, 4096> part{};
    for (ssize_t length = 0; (length = read(drawn, part.data(), part.size())) > 0;)
      unsent.append(part.data(), static_cast<std::size_t>(length));
  }

  /// Sends as much as the terminal takes at once. @return whether that is all
  bool send() {
    const ssize_t sent = write(terminal, unsent.data(), unsent.size());
    if (sent > 0)
      unsent.erase(0, static_cast<std::size_t>(sent));
    return unsent.empty();
  }

  void stop() {
    releaseTerminal();
    stopProcess();
    guardTerminal(POINTER_OFF + resettingText());
    size = {}; // drawn from scratch
    endwin();
    refresh();
    unsent.clear();
    collect();
    unsent += POINTER_ON;
  }

  static short pairOf(Color color) {
    return static_cast<short>(color + 1);
  }

  /// Where there are sixteen colours the second eight are the bright ones; else bold
  /// makes them so. Black stays black.
  static short bright(Color color) {
    return static_cast<short>(::COLORS >= 16 && color != BLACK ? color + 8 : color);
  }

  static attr_t attributesOf(Color color) {
    return static_cast<attr_t>(COLOR_PAIR(pairOf(color))) |
           (::COLORS < 16 && color != BLACK ? A_BOLD : A_NORMAL);
  }

  void takeCode(int code, std::vector<InputEvent> &input) {
    if (code == REPORT_KEY)
      pointer_report = "<";
    else if (!pointer_report.empty())
      takeReport(code, input);
    else if (toKey(code) != Keyboard::UNDEFINED_KEY)
      holdKey(toKey(code), input);
  }

  /// One more character of a report: three numbers, and whether it is a press or a
  /// release.
  void takeReport(int code, std::vector<InputEvent> &input) {
    constexpr std::size_t LONGEST = 32;
    const bool is_end = code == 'M' || code == 'm';
    if (!is_end && pointer_report.size() < LONGEST && code > ' ' && code < 127) {
      pointer_report += static_cast<char>(code);
      return;
    }
    PointerReport report;
    if (is_end && std::sscanf(pointer_report.c_str(), "<%6d;%6d;%6d", &report.buttons,
                              &report.column, &report.row) == 3) {
      report.column--;
      report.row--;
      report.is_release = code == 'm';
      takePointer(report, input);
    }
    pointer_report.clear();
  }

  void draw(const TextScreen &picture) {
    const Size now = sizeNow();
    if (now != size) {
      size = now;
      resizeterm(std::max(size.rows, 1), std::max(size.columns, 1));
      bkgdset(static_cast<chtype>(COLOR_PAIR(pairOf(WHITE))) | ' ');
      clear();
    }
    if (size.fits())
      drawPicture(picture);
    else
      drawNotice();
    refresh();
  }

  void drawPicture(const TextScreen &picture) const {
    const auto [left, top] = origin();
    for (int row = 0; row < TextScreen::HEIGHT; row++) {
      move(top + row, left);
      for (int column = 0; column < TextScreen::WIDTH; column++) {
        const TextCell cell = picture.getCell(column, row);
        const attr_t attributes =
            attributesOf(cell.character == ' ' ? COLOR_DEFAULT : cell.color);
        addch(static_cast<chtype>(cell.character) | static_cast<chtype>(attributes));
      }
    }
  }

  void drawNotice() const {
    const std::array<std::string, 4> lines = {
        "This needs " + std::to_string(TextScreen::WIDTH) + " x " +
            std::to_string(TextScreen::HEIGHT) + " characters; here are " +
            std::to_string(size.columns) + " x " + std::to_string(size.rows) + ".",
        "Make the letters smaller (often Ctrl and -)",
        "or the window larger, and it goes on.", "Ctrl-C ends it."};
    clear();
    int row = std::max((size.rows - static_cast<int>(lines.size())) / 2, 0);
    for (const std::string &line : lines)
      mvaddnstr(row++, std::max((size.columns - static_cast<int>(line.size())) / 2, 0),
                line.c_str(), size.columns);
  }

  /// Where the picture begins, in the terminal's columns and rows.
  static std::pair<int, int> origin() {
    const Size size = sizeNow();
    return {std::max((size.columns - TextScreen::WIDTH) / 2, 0),
            std::max((size.rows - TextScreen::HEIGHT) / 2, 0)};
  }

  static void takePointer(const PointerReport &report, std::vector<InputEvent> &input) {
    constexpr int BUTTON = 3;        // no button, where all of these bits are set
    constexpr int MOVEMENT = 32;     // a bit
    constexpr int OTHERS = 64 + 128; // bits of the wheel, and of buttons beyond the third
    constexpr std::array<Mouse::Button, BUTTON + 1> BUTTONS = {
        Mouse::LEFT, Mouse::MIDDLE, Mouse::RIGHT, Mouse::UNDEFINED_MOUSE_BUTTON};
    const auto [left, top] = origin();
    const int column = std::clamp(report.column - left, 0, TextScreen::WIDTH - 1);
    const int row = std::clamp(report.row - top, 0, TextScreen::HEIGHT - 1);
    const bool is_inside = column == report.column - left && row == report.row - top;
    if ((report.buttons & OTHERS) != 0)
      return;
    InputEvent event;
    event.button = BUTTONS[static_cast<std::size_t>(report.buttons & BUTTON)];
    if ((report.buttons & MOVEMENT) != 0)
      event.kind = InputEvent::mouse_move;
    else if (report.is_release)
      event.kind = InputEvent::mouse_release;
    else if (is_inside)
      event.kind = InputEvent::mouse_press;
    else
      return;
    const Vector middle = spacesToPixels(
        Vector(static_cast<float>(column) + 0.5f, static_cast<float>(row) + 0.5f));
    event.x = static_cast<int>(middle.getX());
    event.y = static_cast<int>(middle.getY());
    input.push_back(event);
  }

  static void addKey(InputEvent::Kind kind, Keyboard::Key key,
                     std::vector<InputEvent> &input) {
    InputEvent event;
    event.kind = kind;
    event.key = key;
    input.push_back(event);
  }

  void holdKey(Keyboard::Key key, std::vector<InputEvent> &input) {
    const auto [held, is_new] = held_keys.insert({key, Time::now()});
    if (is_new)
      addKey(InputEvent::key_press, key, input);
    else
      held->second = Time::now();
  }

  void releaseKeys(std::vector<InputEvent> &input) {
    for (auto held = held_keys.begin(); held != held_keys.end();) {
      if (Time::now() < held->second + KEY_TIME) {
        ++held;
        continue;
      }
      addKey(InputEvent::key_release, held->first, input);
      held = held_keys.erase(held);
    }
  }

  SCREEN *p_screen = nullptr;
  WINDOW *p_input = nullptr;
  std::FILE *p_drawn = nullptr; ///< where ncurses draws into
  int drawn = -1;               ///< where that comes out
  int terminal = -1;            ///< where it goes to
  std::string unsent;           ///< what the terminal has not taken yet
  Size size;                    ///< that was drawn for

  std::string pointer_report; ///< so far; empty while none has begun
  std::map<Keyboard::Key, Time::time_point> held_keys; ///< and when they came last
  bool is_closed = false;
};

} // namespace

std::string Terminal::findProblem() {
  return findTerminalProblem(COLORS.size());
}

std::unique_ptr<Terminal> Terminal::open() {
  auto p_terminal = std::make_unique<NcursesTerminal>();
  if (!p_terminal->isOpen())
    return nullptr;
  return p_terminal;
}

} // namespace gw
