#pragma once

namespace gw {

/// A connection of our own to the display server (X11). The window library aborts the
/// process without a server, or without OpenGL on it, so the display manager checks for
/// both first. Keep this object until the window is open: a server without clients may
/// restart itself and refuse the next one. On platforms without such a server, the check
/// always succeeds.
class DisplayConnection {
public:
  /// Connects. `canOpenWindow` tells whether it worked.
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

/// From now on the process ends with status 1 when the display server is lost, or when
/// it refuses to show the window (somebody destroyed it; the screen has too few colours).
/// One line goes to the log (ERROR) and one to the standard error stream. Nothing is shut
/// down: the libraries would need the server for that.
void endProcessOnDisplayLoss();

} // namespace gw
