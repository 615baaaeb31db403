#include "Assertion.h"

#include "LogManager.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace gw {

namespace {

/// Without the folders of the machine that it was compiled on.
const char *nameOf(const char *file) {
  const char *p_separator = std::strrchr(file, '/');
  return p_separator ? p_separator + 1 : file;
}

} // namespace

void failAssertion(const char *condition, const char *message, const char *file,
                   int line) {
  static bool is_failing = false; // then it was the log that failed
  std::fprintf(stderr, "%s:%d: %s (%s)\n", nameOf(file), line, message, condition);
  LogManager &log = LogManager::getInstance();
  if (log.isStarted() && !is_failing) {
    is_failing = true;
    log.setFlush(true);
    log.writeLog(CRITICAL, "%s:%d: %s (%s)", nameOf(file), line, message, condition);
  }
  std::abort();
}

} // namespace gw
