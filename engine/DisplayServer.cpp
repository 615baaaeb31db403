#include "DisplayServer.h"

#ifdef GW_HAS_X11

#include "LogManager.h"

#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>

namespace gw {

namespace {

int onDisplayLoss(Display *) {
  LogManager &log = LogManager::getInstance();
  if (log.isStarted())
    log.writeLog(ERROR, "The connection to the display was lost.");
  std::fprintf(stderr, "The connection to the display was lost.\n");
  std::fflush(nullptr);
  std::_Exit(1);
}

} // namespace

bool isDisplayAvailable() {
  Display *display = XOpenDisplay(nullptr);
  if (!display)
    return false;
  int opcode = 0;
  int first_event = 0;
  int first_error = 0;
  const bool has_opengl =
      XQueryExtension(display, "GLX", &opcode, &first_event, &first_error);
  XCloseDisplay(display);
  return has_opengl;
}

void endProcessOnDisplayLoss() {
  XSetIOErrorHandler(onDisplayLoss);
}

} // namespace gw

#else

namespace gw {

bool isDisplayAvailable() {
  return true;
}

void endProcessOnDisplayLoss() {
}

} // namespace gw

#endif
