#include <X11/Xlib.h>

#include <cstdlib>

/// Asks a window to close, as a click on a close button does: close-window NUMBER
/// Destroys it without asking: close-window NUMBER destroy
int main(int argc, char **argv) {
  Display *display = XOpenDisplay(nullptr);
  if (!display || argc < 2)
    return 1;
  if (argc == 3) {
    XDestroyWindow(display, std::strtoul(argv[1], nullptr, 0));
    XCloseDisplay(display);
    return 0;
  }
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = std::strtoul(argv[1], nullptr, 0);
  event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] =
      static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  const Status sent =
      XSendEvent(display, event.xclient.window, False, NoEventMask, &event);
  XCloseDisplay(display);
  return sent ? 0 : 1;
}
