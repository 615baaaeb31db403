#include "TemporaryDirectory.h"

#include <cstdlib>
#include <string>
#include <system_error>

namespace {

/// Absolute; empty where there is none.
std::filesystem::path placeForTemporaryFiles() {
  std::error_code failed;
  const auto place =
      std::filesystem::absolute(std::filesystem::temp_directory_path(failed), failed);
  return failed ? std::filesystem::path() : place;
}

} // namespace

TemporaryDirectory::TemporaryDirectory() : TemporaryDirectory(placeForTemporaryFiles()) {
}

TemporaryDirectory::TemporaryDirectory(const std::filesystem::path &parent) {
  std::string name = parent / "gw-sprite-XXXXXX";
  if (!parent.empty() && mkdtemp(name.data()))
    path = name;
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  if (!path.empty())
    std::filesystem::remove_all(path, ignored);
}
