#pragma once

#include <string>

namespace gw {

/// What has to happen to the terminal whatever becomes of the program. Only what may be
/// called while a signal is handled happens here; one terminal at a time, that of the
/// standard output.

/// Remembers how the terminal is, and from now on, when the program crashes, is told to
/// end for a second time, or calls `exit`, gives it back so. The standard error stream
/// goes to a file of its own until then.
/// @param farewell what makes the terminal what it was; its modes are restored besides
void guardTerminal(const std::string &farewell);

/// Gives the terminal back, if that has not happened, and copies what was written to the
/// standard error stream meanwhile to where it goes again.
void releaseTerminal();

/// Stops the process as Ctrl-Z does, and returns when it goes on. The terminal has to be
/// given back before.
void stopProcess();

/// Whether Ctrl-Z has asked for that since the last call.
bool takeStopRequest();

} // namespace gw
