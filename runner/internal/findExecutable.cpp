#include "internal/findExecutable.h"

#include <system_error>

#ifdef _WIN32
#include <windows.h>
#endif

namespace gw {

namespace {

/// @return empty when the platform does not tell
std::filesystem::path askPlatform() {
#ifdef _WIN32
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = 0;
  // What does not fit fills the string.
  while ((length = GetModuleFileNameW(nullptr, path.data(),
                                      static_cast<DWORD>(path.size()))) == path.size())
    path.resize(2 * path.size());
  path.resize(length);
  return path;
#else
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored);
#endif
}

} // namespace

std::filesystem::path findExecutable(const char *p_program) {
  std::filesystem::path path = askPlatform();
  std::error_code ignored;
  return path.empty() ? std::filesystem::absolute(p_program, ignored) : path;
}

} // namespace gw
