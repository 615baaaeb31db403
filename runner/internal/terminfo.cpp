#include "internal/terminfo.h"

#include <unistd.h>

#include <cstdint>
#include <cstdlib>

// Last: their macros are common words.
#include <curses.h>
#include <term.h>

namespace gw {

namespace {

/// What the system knows of the terminal that TERM names, while it lives. What ncurses
/// itself works with stays as it is.
class TerminalType {
public:
  TerminalType() = default;
  ~TerminalType() {
    TERMINAL *p_own = set_curterm(p_former);
    if (is_known)
      del_curterm(p_own);
  }
  TerminalType(const TerminalType &) = delete;
  TerminalType &operator=(const TerminalType &) = delete;

  bool isKnown() const { return is_known; }

private:
  TERMINAL *p_former = cur_term;
  int status = 0;
  bool is_known = setupterm(nullptr, STDOUT_FILENO, &status) == OK;
};

/// A terminal's capability; null where it lacks it.
const char *capability(std::string name) {
  const char *p_text = tigetstr(name.data());
  return reinterpret_cast<std::intptr_t>(p_text) == -1 ? nullptr : p_text;
}

int number(std::string name) {
  return tigetnum(name.data());
}

} // namespace

std::string findTerminalProblem(std::size_t color_count) {
  if (isatty(STDIN_FILENO) == 0 || isatty(STDOUT_FILENO) == 0)
    return "the terminal is not there: standard input and output have to be one";
  const char *p_type = std::getenv("TERM");
  const std::string type = p_type ? p_type : "";
  const TerminalType known;
  if (type.empty() || !known.isKnown())
    return "the type of the terminal is not known (TERM is \"" + type + "\")";
  const std::string named = "a terminal of the type \"" + type + "\" ";
  if (!capability("cup") || !capability("clear"))
    return named + "cannot be drawn on (TERM)";
  // The console has keys for the pointer and no pointer: another program reads that.
  if (!capability("kmous") || type.compare(0, 5, "linux") == 0)
    return named + "has no mouse (TERM)";
  if (number("colors") < static_cast<int>(color_count))
    return named + "has no colours (TERM)";
  return "";
}

std::string resettingText() {
  const TerminalType known;
  std::string text;
  for (const char *name : {"sgr0", "op", "rmkx", "cnorm", "rmcup"})
    if (const char *p_capability = capability(name))
      text += p_capability;
  return text;
}

} // namespace gw
