#pragma once

#include <SFML/Config.hpp>

#include <cstdio>
#include <ctime>
#include <string>

/// @def GW_IS_SFML_3_0
/// 1 with SFML 3.0, which lacks some of what we use and does some of it differently;
/// 0 with later versions.
#if SFML_VERSION_MAJOR == 3 && SFML_VERSION_MINOR == 0
#define GW_IS_SFML_3_0 1
#else
#define GW_IS_SFML_3_0 0
#endif

namespace gw {

/// @file
/// What standard C++ cannot do, for each platform. Only this file, its source and the
/// connection to the display depend on the platform or on the version of SFML.

/// Call it before the first file is opened. When a program is started with a standard
/// stream closed, the next file that it opens takes the stream's place, and what is
/// printed lands in that file. This occupies the place, so that printing fails instead.
void keepStandardStreams();

/// The local calendar time; all zero when the platform cannot tell.
std::tm toLocalTime(std::time_t time);

/// Suspends the thread. A signal ends the sleep early.
/// @param microseconds positive, below one second
void sleepFor(long long microseconds);

/// Creates or empties a file and opens it for reading and writing. Until it is closed,
/// every other process that calls this finds it taken, unless the file system has no
/// locks. Only a regular file is opened; a pipe could block for ever.
/// @param is_taken set to whether another process has the file
/// @return the file, the caller's to close; null when it is taken or cannot be opened,
/// and then it is unchanged
std::FILE *openExclusively(const std::string &filename, bool &is_taken);

/// Prints "title: message" and a line end on the standard error stream. On Windows, where
/// a program that was started by a double click has no such stream, a box shows the
/// message until the player closes it: for what the player must know and nothing else.
void tell(const std::string &title, const std::string &message);

} // namespace gw
