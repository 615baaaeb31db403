#pragma once

#include "internal/InputEvent.h"

#include <cstdint>
#include <fstream>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace gw {

/// A game as text: its name, version and seed, every input event with the step in which
/// it was handled, and a digest of the state every so many steps. With these the game can
/// be played again, exactly. The format is described in docs/recording-format.md.

constexpr int DIGEST_STEPS = 100; ///< from one digest to the next

/// The state after a number of steps.
struct RecordedDigest {
  int steps = 0;
  std::uint64_t digest = 0;
};

struct Recording {
  std::string game;
  std::string version;
  unsigned seed = 0;
  /// How long the game was. Of a recording that was cut off: up to where its next digest
  /// would have been written, because the game ended before.
  int steps = 0;
  std::vector<InputEvent> events;      ///< by step, in the order in which they came
  std::vector<RecordedDigest> digests; ///< by steps
};

/// Writes a recording while the game goes on, line by line: what was recorded
/// survives the end of the process.
class RecordingWriter {
public:
  /// Empties the file, or makes it. Game and version are one word each.
  RecordingWriter(const std::string &filename, const std::string &game,
                  const std::string &version, unsigned seed);

  /// False once something could not be written. Nothing is written from then on.
  bool isGood() const { return file.good(); }

  void write(const InputEvent &event);
  void write(const RecordedDigest &digest);

  /// The last line; then the file is closed. Without it the recording is one that was cut
  /// off.
  void finish(int steps);

private:
  std::ofstream file;
};

/// A last line that is torn (it has no end) does not count.
/// @return the recording; nothing when it cannot be read or is malformed, and then
/// `error` says why, as "file:line: reason" @{
std::optional<Recording> readRecording(const std::string &filename, std::string &error);
std::optional<Recording> readRecording(std::istream &stream, const std::string &filename,
                                       std::string &error); ///@}

} // namespace gw
