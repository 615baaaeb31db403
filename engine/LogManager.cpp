#include "LogManager.h"

#include "utility.h"

namespace gw {

namespace {

int writeFallback(const char *fmt) {
  std::fprintf(stderr, "The LogManager is not started but was requested to write a log. "
                       "This message is written to stderr as writing to the log is not "
                       "possible.\n");
  std::fprintf(stderr, "The message without arguments was \"%s\".\n", fmt);
  return -1;
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
  log_file = std::fopen(LOGFILE_NAME.c_str(), "w+");
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
  std::fclose(log_file);
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
  std::fprintf(log_file, "[%s] %8s: ", getTimeString(), getLogLevelString(level).c_str());
  const int written = std::vfprintf(log_file, fmt, args);
  std::fprintf(log_file, "\n");
  if (do_flush)
    std::fflush(log_file);
  return written;
}

} // namespace gw
