#include "internal/DisplayConnection.h"

#ifdef GW_HAS_X11

#include "LogManager.h"

#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>

namespace gw {

namespace {

[[noreturn]] void endProcess() {
  LogManager &log = LogManager::getInstance();
  if (log.isStarted())
    log.writeLog(ERROR, "The connection to the display was lost.");
  std::fprintf(stderr, "The connection to the display was lost.\n");
  std::fflush(nullptr);
  std::_Exit(1);
}

int onDisplayLoss(Display *) {
  endProcess();
}

/// The server refuses what no correct program would ask for: the window is gone.
int onError(Display *, XErrorEvent *) {
  endProcess();
}

} // namespace

DisplayConnection::DisplayConnection() : p_server(XOpenDisplay(nullptr)) {
}

DisplayConnection::~DisplayConnection() {
  if (p_server)
    XCloseDisplay(static_cast<Display *>(p_server));
}

bool DisplayConnection::canOpenWindow() const {
  int opcode = 0;
  int first_event = 0;
  int first_error = 0;
  return p_server && XQueryExtension(static_cast<Display *>(p_server), "GLX", &opcode,
                                     &first_event, &first_error);
}

void endProcessOnDisplayLoss() {
  XSetIOErrorHandler(onDisplayLoss);
  XSetErrorHandler(onError);
}

} // namespace gw

#else

namespace gw {

DisplayConnection::DisplayConnection() = default;

DisplayConnection::~DisplayConnection() = default;

bool DisplayConnection::canOpenWindow() const {
  return true;
}

void endProcessOnDisplayLoss() {
}

} // namespace gw

#endif
