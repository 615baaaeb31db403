#pragma once

#include "internal/InputEvent.h"

#include <memory>
#include <string>
#include <vector>

namespace gw {

class TextScreen;

/// A text terminal as the place where a game is shown, and where its keys and pointer
/// are. It takes the whole terminal while it lives and gives it back as it was at its
/// end, while Ctrl-Z stops the program, and when the program crashes or calls `exit`;
/// what is written to the standard error stream meanwhile appears there afterwards. One
/// at a time.
///
/// A terminal that is too slow gets fewer pictures; the game never waits for it.
class Terminal {
public:
  /// Why there is no terminal, or none that can do what is needed; empty where there is.
  static std::string findProblem();

  /// Takes the terminal that the standard input and output are, where that is no problem.
  /// @return null where it cannot be opened all the same
  static std::unique_ptr<Terminal> open();

  /// Gives the terminal back.
  virtual ~Terminal() = default;

  /// Shows that, in the middle of the terminal, if it has taken what was shown before.
  virtual void show(const TextScreen &screen) = 0;

  /// What was typed and pointed at since the last call. The pointer is in the middle of a
  /// cell.
  ///
  /// Terminals do not report that a key comes up. It counts as up when it has not
  /// repeated for 100 ms: longer than the pause between two repeats of a held key (30 to
  /// 50 ms), and shorter than that between two taps of a finger. So a held key is a short
  /// press, then a pause as long as the keyboard takes to begin with repeating, then one
  /// long press.
  virtual std::vector<InputEvent> takeInput() = 0;

  /// Whether the terminal is large enough. Where it is not, it says so to the person.
  virtual bool fits() const = 0;

  /// Whether it has ended: its input was closed.
  virtual bool isClosed() const = 0;

protected:
  Terminal() = default;
  Terminal(const Terminal &) = delete;
  Terminal &operator=(const Terminal &) = delete;
};

} // namespace gw
