#include "LogManager.h"

#include "Assertion.h"
#include "internal/platform.h"
#include "utility.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace gw {

namespace {

/// Opens the log, or, where another copy of the program writes that, the first of
/// glidewing-2.log, glidewing-3.log ... that is free; then says so.
std::FILE *openLog() {
  constexpr int MOST_COPIES = 99;
  const std::string::size_type end = LOGFILE_NAME.rfind('.');
  std::string filename = LOGFILE_NAME;
  bool is_taken = false;
  std::FILE *p_file = openExclusively(filename, is_taken);
  for (int copy = 2; is_taken && copy <= MOST_COPIES; copy++) {
    filename = LOGFILE_NAME;
    filename.insert(end, "-" + std::to_string(copy));
    p_file = openExclusively(filename, is_taken);
  }
  if (p_file && filename != LOGFILE_NAME)
    std::fprintf(stderr, "%s is another copy's of this program; this one writes %s.\n",
                 LOGFILE_NAME.c_str(), filename.c_str());
  return p_file;
}

int writeFallback(const char *fmt) {
  std::fprintf(stderr, "The LogManager is not started but was requested to write a log. "
                       "This message is written to stderr as writing to the log is not "
                       "possible.\n");
  std::fprintf(stderr, "The message without arguments was \"%s\".\n", fmt);
  return -1;
}

/// For a line that the file did not take, as on a full disk. Call it at once: `errno`
/// has the reason. @param length of the message, in characters
void writeUnwritten(int length, const char *fmt, va_list args) {
  std::fprintf(stderr, "The log cannot be written: %s.\n", std::strerror(errno));
  std::string message(static_cast<std::size_t>(std::max(length, 0)), ' ');
  std::vsnprintf(message.data(), message.size() + 1, fmt, args);
  std::fprintf(stderr, "The message was \"%s\".\n", printable(message).c_str());
}

} // namespace

LogManager::LogManager() {
  setType("LogManager");
}

LogManager::~LogManager() {
  if (log_file)
    std::fclose(log_file);
}

LogManager &LogManager::getInstance() {
  static LogManager instance;
  return instance;
}

int LogManager::startUp() {
  if (isStarted()) {
    writeLog(INFO, "LogManager is already started.");
    return 0;
  }
  keepStandardStreams(); // the log would take the place of one that is closed
  log_file = openLog();
  if (!log_file)
    return -1;
  Manager::startUp();
  writeLog(INFO, "LogManager is started up.");
  return 0;
}

void LogManager::shutDown() {
  if (!isStarted())
    return;
  writeLog(INFO, "LogManager is shutting down.");
  if (std::fclose(log_file) != 0)
    std::fprintf(stderr, "The end of the log cannot be written: %s.\n",
                 std::strerror(errno));
  log_file = nullptr;
  Manager::shutDown();
}

std::string LogManager::getLogLevelString(LogLevel level) {
  switch (level) {
  case CRITICAL:
    return "CRITICAL";
  case ERROR:
    return "ERROR";
  case WARNING:
    return "WARNING";
  case INFO:
    return "INFO";
  case DEBUG:
    return "DEBUG";
  case ALL:
    return "ALL";
  }
  return "UNKNOWN";
}

int LogManager::writeLog(LogLevel level, const char *fmt, ...) {
  if (!isStarted())
    return writeFallback(fmt);
  va_list args;
  va_start(args, fmt);
  const int written = vwriteLog(level, fmt, args);
  va_end(args);
  return written;
}

int LogManager::writeLog(const char *fmt, ...) {
  if (!isStarted())
    return writeFallback(fmt);
  va_list args;
  va_start(args, fmt);
  const int written = vwriteLog(ALL, fmt, args);
  va_end(args);
  return written;
}

int LogManager::vwriteLog(LogLevel level, const char *fmt, va_list args) {
  if (level > log_level)
    return 0;
  GW_ASSERT(!is_writing, "a line is written from inside the log");
  is_writing = true;
  va_list args_again;
  va_copy(args_again, args);
  std::fprintf(log_file, "[%s] %8s: ", getTimeString(), getLogLevelString(level).c_str());
  const int written = std::vfprintf(log_file, fmt, args);
  std::fprintf(log_file, "\n");
  if (do_flush)
    std::fflush(log_file);
  if (std::ferror(log_file)) {
    std::clearerr(log_file); // there may be room again for the next line
    writeUnwritten(written, fmt, args_again);
  }
  va_end(args_again);
  is_writing = false;
  return written;
}

} // namespace gw
