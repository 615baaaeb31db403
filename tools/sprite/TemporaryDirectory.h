#pragma once

#include <filesystem>

/// A new directory that disappears with this object, and all that is in it.
class TemporaryDirectory {
public:
  TemporaryDirectory();
  ~TemporaryDirectory();

  TemporaryDirectory(const TemporaryDirectory &) = delete;
  TemporaryDirectory &operator=(const TemporaryDirectory &) = delete;

  /// Absolute; empty when the directory could not be made.
  const std::filesystem::path &getPath() const { return path; }

private:
  std::filesystem::path path;
};
