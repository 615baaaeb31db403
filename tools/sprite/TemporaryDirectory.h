#pragma once

#include "SignalBlock.h"

#include <filesystem>

/// A new directory that disappears with this object, and all that is in it, also when
/// the program is asked to end.
class TemporaryDirectory {
public:
  /// Where the machine has its temporary files.
  TemporaryDirectory();

  explicit TemporaryDirectory(const std::filesystem::path &parent);
  ~TemporaryDirectory();

  TemporaryDirectory(const TemporaryDirectory &) = delete;
  TemporaryDirectory &operator=(const TemporaryDirectory &) = delete;

  /// Absolute if the parent is; empty, with `errno`, when it could not be made.
  const std::filesystem::path &getPath() const { return path; }

private:
  const SignalBlock until_removed;
  std::filesystem::path path;
};
