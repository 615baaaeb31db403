#include "internal/platform.h"

#include "utility.h"

#include <cerrno>

#ifdef _WIN32
#include <SFML/System/Sleep.hpp>
#include <SFML/System/Time.hpp>

#include <share.h>
#include <windows.h>
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

/// Whole milliseconds are all that there is. Rounded up: the next step makes good for a
/// sleep that was too long, and not for one that was too short.
void sleepFor(long long microseconds) {
  sf::sleep(sf::milliseconds(static_cast<int>((microseconds + 999) / 1000)));
}

/// Appending first leaves the content of what is another's, or no file.
std::FILE *openExclusively(const std::string &filename, bool &is_taken) {
  bool is_file = false;
  _doserrno = 0;
  if (std::FILE *p_file = _fsopen(filename.c_str(), "a", _SH_DENYWR)) {
    is_file = isRegularFile(filename);
    std::fclose(p_file);
  }
  std::FILE *p_file = is_file ? _fsopen(filename.c_str(), "w+", _SH_DENYWR) : nullptr;
  is_taken = !p_file && _doserrno == ERROR_SHARING_VIOLATION;
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

void tell(const std::string &title, const std::string &message) {
  std::fprintf(stderr, "%s: %s\n", title.c_str(), message.c_str());
#ifdef _WIN32
  // A program with windows of its own has an error stream only if it was given one.
  if (GetFileType(GetStdHandle(STD_ERROR_HANDLE)) == FILE_TYPE_UNKNOWN)
    MessageBoxA(nullptr, message.c_str(), title.c_str(), MB_ICONWARNING);
#endif
}

} // namespace gw
