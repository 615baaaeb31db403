#pragma once

#include <memory>
#include <string>

namespace sf {
class Sound;
class SoundBuffer;
} // namespace sf

namespace gw {

/// A short effect, held in memory as a whole. The resource manager loads, labels
/// and owns it; game code looks it up by label and plays it. Never copied: the
/// player refers to the object's own samples.
class Sound {
public:
  /// Nothing is loaded.
  Sound();
  ~Sound();
  Sound(const Sound &) = delete;
  Sound &operator=(const Sound &) = delete;

  /// Decodes the file, in place of what was loaded before.
  /// @return 0, or -1 with a WARNING (nothing changes)
  int loadSound(std::string filename);

  /// The name that it is looked up by. @{
  void setLabel(std::string new_label) { label = new_label; }
  std::string getLabel() const { return label; } ///@}

  /// Goes on after a pause, else starts from the beginning, even when it is still
  /// playing. Like `stop` and `pause` it does nothing before a file was loaded.
  void play(bool loop);

  /// Ends it.
  void stop();

  /// Halts it.
  void pause();

  /// A copy of the player (`<SFML/Audio/Sound.hpp>`), silent when nothing is loaded. It
  /// borrows this object's samples.
  sf::Sound getSound() const;

private:
  // The player reads the samples: it stands behind them, and so goes before them.
  std::unique_ptr<sf::SoundBuffer> p_samples; ///< never null
  std::unique_ptr<sf::Sound> p_sound;         ///< null before a file was loaded
  std::string label;
};

} // namespace gw
