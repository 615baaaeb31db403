#include "TemporaryDirectory.h"

#include <cstdlib>
#include <string>
#include <system_error>

TemporaryDirectory::TemporaryDirectory() {
  std::error_code error;
  const auto parent =
      std::filesystem::absolute(std::filesystem::temp_directory_path(error), error);
  if (error)
    return;
  std::string name = parent / "gw-sprite-XXXXXX";
  if (mkdtemp(name.data()))
    path = name;
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  if (!path.empty())
    std::filesystem::remove_all(path, ignored);
}
