#pragma once

#include <cstdio>
#include <ctime>
#include <string>

namespace gw {

/// @file
/// What standard C++ has no way for, once for each platform: nothing else in the engine
/// asks which one it is on, but for the connection to the display.

/// To be called first in `main`. Where the program was started with a standard stream
/// closed, the next file to be opened would get that stream's place, and all that is
/// printed. This keeps the place: what is printed there fails, as it should.
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
