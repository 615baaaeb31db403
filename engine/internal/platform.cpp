#include "internal/platform.h"

#include "utility.h"

#include <cerrno>

#ifdef _WIN32
#include <SFML/System/Sleep.hpp>
#include <SFML/System/Time.hpp>

#include <share.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace gw {

#ifdef _WIN32

/// Files have no places here.
void keepStandardStreams() {
}

std::tm toLocalTime(std::time_t time) {
  std::tm local{};
  localtime_s(&local, &time);
  return local;
}

void sleepFor(long long microseconds) {
  sf::sleep(sf::microseconds(microseconds));
}

std::FILE *openExclusively(const std::string &filename, bool &is_taken) {
  is_taken = false;
  std::FILE *p_file = std::fopen(filename.c_str(), "a");
  const bool is_file = p_file && isRegularFile(filename);
  if (p_file)
    std::fclose(p_file);
  if (!is_file) {
    is_taken = errno == EACCES && isRegularFile(filename);
    return nullptr;
  }
  p_file = _fsopen(filename.c_str(), "w+", _SH_DENYWR);
  is_taken = !p_file && errno == EACCES;
  return p_file;
}

#else

void keepStandardStreams() {
  // Opened for reading, and always in the lowest place that is free.
  int place = 0;
  do
    place = open("/dev/null", O_RDONLY | O_CLOEXEC);
  while (place >= 0 && place <= STDERR_FILENO);
  if (place > STDERR_FILENO)
    close(place);
}

std::tm toLocalTime(std::time_t time) {
  std::tm local{};
  localtime_r(&time, &local);
  return local;
}

void sleepFor(long long microseconds) {
  timespec duration{};
  duration.tv_nsec = static_cast<long>(microseconds * 1000);
  nanosleep(&duration, nullptr);
}

/// Emptied only once it is ours. Without O_NONBLOCK, opening a pipe would wait for its
/// reader.
std::FILE *openExclusively(const std::string &filename, bool &is_taken) {
  constexpr mode_t FOR_ALL = 0666; // less what the user's umask takes away
  is_taken = false;
  const int file = open(filename.c_str(),
                        O_RDWR | O_CREAT | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, FOR_ALL);
  if (file < 0)
    return nullptr;
  struct stat status {};
  bool is_ours = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
  if (is_ours && flock(file, LOCK_EX | LOCK_NB) != 0) {
    is_taken = errno == EWOULDBLOCK;
    is_ours = !is_taken;
  }
  std::FILE *p_file = is_ours && ftruncate(file, 0) == 0 ? fdopen(file, "w+") : nullptr;
  if (!p_file)
    close(file);
  return p_file;
}

#endif

} // namespace gw
