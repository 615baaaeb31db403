#pragma once

#include <SFML/System/Vector2.hpp>
#include <SFML/Window/Keyboard.hpp>
#include <SFML/Window/Mouse.hpp>

#include <fstream>
#include <optional>
#include <string>
#include <vector>

/// A game as text: its seed, and every input event with the step in which it was
/// handled. With these the game can be played again, exactly. The format is
/// described in docs/recording-format.md.

/// One key or mouse event.
struct InputEvent {
  enum Kind { key_press, key_release, mouse_move, mouse_press, mouse_release };

  int step = 0; ///< counted from 0
  Kind kind = mouse_move;
  sf::Keyboard::Key key = sf::Keyboard::Key::Unknown; ///< key events
  sf::Mouse::Button button = sf::Mouse::Button::Left; ///< mouse presses and releases
  sf::Vector2i position;                              ///< mouse events, in pixels
};

struct Recording {
  unsigned seed = 0;
  int steps = 0;                  ///< how long the game was
  std::vector<InputEvent> events; ///< by step, in the order in which they came
};

/// Writes a recording while the game goes on, line by line: what was recorded
/// survives the end of the process.
class RecordingWriter {
public:
  /// Empties the file, or makes it.
  RecordingWriter(const std::string &filename, unsigned seed);

  /// False once something could not be written. Nothing is written from then on.
  bool isGood() const { return file.good(); }

  void write(const InputEvent &event);

  /// The last line; then the file is closed. Without it the recording ends with its
  /// last event.
  void finish(int steps);

private:
  std::ofstream file;
};

/// A last line that is torn (it has no end) does not count.
/// @return the recording; nothing when the file cannot be read or is malformed,
/// and then `error` says why, as "file:line: reason"
std::optional<Recording> readRecording(const std::string &filename, std::string &error);
