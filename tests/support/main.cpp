#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

/// Every test process works in a directory of its own, because the log is written
/// to the working directory; it is removed at the end.
int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  std::string directory =
      (std::filesystem::temp_directory_path() / "glidewing-test-XXXXXX").string();
  if (!mkdtemp(directory.data())) {
    std::perror(directory.c_str());
    return 1;
  }
  std::filesystem::current_path(directory);
  const int result = RUN_ALL_TESTS();
  std::filesystem::current_path("/");
  std::filesystem::remove_all(directory);
  return result;
}
