#pragma once

namespace gw {

/// What the window library leaves to chance: without a display server it aborts
/// the process, and when the server goes away in mid-game the process ends
/// inside a library. These two look after both, where there is such a server
/// (X11); elsewhere they do nothing.

/// Whether a window can be opened: the server answers and knows OpenGL.
bool isDisplayAvailable();

/// From now on the loss of the server ends the process with status 1, after one
/// line in the log (ERROR) and one on the standard error stream. Nothing else is
/// tidied up: every library that could do it would want the server.
void endProcessOnDisplayLoss();

} // namespace gw
