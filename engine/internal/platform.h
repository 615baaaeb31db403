#pragma once

#include <SFML/Config.hpp>

#include <cstdio>
#include <ctime>
#include <string>

/// @def GW_IS_SFML_3_0
/// Whether the library is 3.0, which lacks and does differently some of what came with
/// 3.1; 1 or 0.
#if SFML_VERSION_MAJOR == 3 && SFML_VERSION_MINOR == 0
#define GW_IS_SFML_3_0 1
#else
#define GW_IS_SFML_3_0 0
#endif

namespace gw {

/// @file
/// What standard C++ has no way for, once for each platform, and the versions of SFML:
/// nothing else in the engine asks which ones it is on, but for the connection to the
/// display.

/// To be called before any file is opened and kept open. Where the program was started
/// with a standard stream closed, the next file would get that stream's place, and all
/// that is printed. This keeps the place: what is printed there fails, as it should.
void keepStandardStreams();

/// Calendar time as the local clock on the wall shows it; all zero when the platform
/// cannot tell.
std::tm toLocalTime(std::time_t time);

/// Suspends the thread once. An interruption ends the sleep early.
/// @param microseconds positive, below one second
void sleepFor(long long microseconds);

/// Creates or empties a file and opens it for reading and writing, for this process
/// alone: until it is closed, the next one to ask finds it taken. Only a regular file is
/// opened; a pipe could block for ever. Where the file system knows no locks, nobody is
/// kept out.
/// @param is_taken set to whether another process has it
/// @return null when it is taken or cannot be opened; then it is as it was
std::FILE *openExclusively(const std::string &filename, bool &is_taken);

} // namespace gw
