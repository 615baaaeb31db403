#pragma once

#include <memory>
#include <string>

namespace sf {
class Music;
}

namespace gw {

/// A piece of music, streamed from its file while it plays: the file must stay
/// readable. The resource manager opens, labels and owns it.
class Music {
public:
  /// Nothing is loaded.
  Music();
  ~Music();
  Music(const Music &) = delete;
  Music &operator=(const Music &) = delete;

  /// Opens the file as a stream. @return 0, or -1 with a WARNING
  int loadMusic(std::string filename);

  /// The name that it is looked up by. @{
  void setLabel(std::string new_label) { label = new_label; }
  std::string getLabel() const { return label; } ///@}

  /// The stream itself (`<SFML/Audio/Music.hpp>`); stays this object's. Never null.
  sf::Music *getMusic() { return p_music.get(); }

  /// Goes on after a pause, else starts from the beginning, even when it is still
  /// playing. Like `stop` and `pause` it does nothing before a file was loaded.
  void play(bool loop);

  /// Ends it.
  void stop();

  /// Halts it.
  void pause();

private:
  std::unique_ptr<sf::Music> p_music; ///< never null
  std::string label;
};

} // namespace gw
