#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

/// Every test process works in a directory of its own, because the log is written
/// to the working directory; it is removed at the end.
int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  const std::filesystem::path all = std::filesystem::temp_directory_path();
  std::random_device chance;
  std::filesystem::path directory;
  do
    directory = all / ("glidewing-test-" + std::to_string(chance()));
  while (!std::filesystem::create_directory(directory)); // somebody else's
  std::filesystem::current_path(directory);
  const int result = RUN_ALL_TESTS();
  std::filesystem::current_path(all);
  std::filesystem::remove_all(directory);
  return result;
}
