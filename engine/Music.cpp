#include "Music.h"

#include "LogManager.h"
#include "internal/AudioFile.h"
#include "internal/PlaybackDevice.h"

#include <SFML/Audio/Music.hpp>

namespace gw {

Music::Music() : p_music(std::make_unique<sf::Music>()) {
}

Music::~Music() = default;

int Music::loadMusic(std::string filename) {
  if (!openAudioFile(filename, [&] { return p_music->openFromFile(filename); })) {
    LogManager::getInstance().writeLog(
        WARNING,
        "gw::Music::loadMusic() - Could not associate music buffer with file "
        "'%s'.",
        filename.c_str());
    return -1;
  }
  requirePlaybackDevice();
  return 0;
}

void Music::play(bool loop) {
  p_music->setLooping(loop);
  p_music->play();
}

void Music::stop() {
  p_music->stop();
}

void Music::pause() {
  p_music->pause();
}

} // namespace gw
