#pragma once

namespace gw {

/// A connection of our own to the display server, to look before the window
/// library leaps: without a server, or without OpenGL on it, that library aborts
/// the process. To be held while a window is being opened: a server without
/// clients may restart itself and refuse the next one. Where windows do not come
/// from such a server (X11), all is well.
class DisplayConnection {
public:
  /// Connects; whether it worked is for `canOpenWindow` to say.
  DisplayConnection();

  /// Disconnects.
  ~DisplayConnection();

  DisplayConnection(const DisplayConnection &) = delete;
  DisplayConnection &operator=(const DisplayConnection &) = delete;

  /// Whether the server answers and knows OpenGL.
  bool canOpenWindow() const;

private:
  void *p_server = nullptr; ///< the X library's; owned, null without a server
};

/// From now on the loss of the display server ends the process with status 1,
/// after one line in the log (ERROR) and one on the standard error stream. So does the
/// server's refusal to show the window, as when somebody else destroyed it or the
/// screen has too few colours. Nothing else is tidied up: every library that could do
/// it would want the server.
void endProcessOnDisplayLoss();

} // namespace gw
