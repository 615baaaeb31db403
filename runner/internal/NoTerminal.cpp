// For platforms without ncurses.

#include "internal/Terminal.h"
#include "internal/TerminalState.h"

namespace gw {

std::string Terminal::findProblem() {
  return "this program was built without terminals";
}

std::unique_ptr<Terminal> Terminal::open() {
  return nullptr;
}

void releaseTerminal() {
}

} // namespace gw
