#pragma once

#include "Manager.h"

#include <cstdarg>
#include <cstdio>
#include <string>

/// @file

/// @def GW_PRINTF
/// Has the compiler check calls of a printf-style function: the places of its format
/// and of the first value in the list of parameters, counted from 1 (`this`).
#if defined(__MINGW32__) // which has two kinds of printf; <cstdio> tells which
#define GW_PRINTF(format_index, first_argument)                                          \
  __attribute__((format(__MINGW_PRINTF_FORMAT, format_index, first_argument)))
#elif defined(__GNUC__)
#define GW_PRINTF(format_index, first_argument)                                          \
  __attribute__((format(printf, format_index, first_argument)))
#else
#define GW_PRINTF(format_index, first_argument)
#endif

namespace gw {

/// The log, in the working directory; every start empties it. A second copy of the
/// program in the same directory writes glidewing-2.log, and so on.
inline const std::string LOGFILE_NAME = "glidewing.log";

/// How much a line matters: the lower, the more.
enum LogLevel : int {
  CRITICAL = 0, ///< the program cannot go on
  ERROR = 1,    ///< something failed
  WARNING = 2,  ///< something was refused, or is missing and not needed
  INFO = 3,     ///< what the program does
  DEBUG = 4,    ///< details, for finding faults
  ALL = 5,      ///< messages written without a level; left out unless asked for
};

/// Writes the log: lines of engine and game, each with the time of day and its level.
/// The game manager starts it first and stops it last, so that all others can write.
/// While it is not started, and when the file cannot take a line (a full disk), the line
/// goes to the standard error stream with an explanation.
class LogManager : public Manager {
public:
  /// The only one.
  static LogManager &getInstance();

  /// Closes the file, if the log was not shut down.
  ~LogManager() override;

  /// Opens (and empties) the log file. When another copy of the program has it, a line on
  /// the standard error stream tells the name of this one's.
  /// @return 0, also when already started; -1, silently, when the file cannot be opened
  /// or is not a regular file (a pipe, a device)
  int startUp() override;

  /// Writes the file's last line and closes it.
  void shutDown() override;

  /// With flushing on, each line reaches the operating system before the call that
  /// writes it returns: it survives the death of the process. Off unless set.
  void setFlush(bool new_do_flush) { do_flush = new_do_flush; }

  /// Lines with a greater level than this are left out; `DEBUG` unless set. @{
  void setLogLevel(LogLevel level) { log_level = level; }
  LogLevel getLogLevel() const { return log_level; } ///@}

  /// The tag written for a level; "UNKNOWN" for anything that is not one.
  std::string getLogLevelString(LogLevel level);

  /// Writes one line, printf-style. The level-less form writes at `ALL`.
  /// @return the number of characters of the message, 0 when the level is left
  /// out, -1 when not started @{
  int writeLog(LogLevel level, const char *fmt, ...) GW_PRINTF(3, 4);
  int writeLog(const char *fmt, ...) GW_PRINTF(2, 3); ///@}

  /// The same with a ready argument list. Only to be called while started.
  int vwriteLog(LogLevel level, const char *fmt, va_list args);

private:
  LogManager();

  std::FILE *log_file = nullptr; ///< owned; null while not started
  bool do_flush = false;
  bool is_writing = false; ///< a line at this moment
  LogLevel log_level = DEBUG;
};

} // namespace gw
