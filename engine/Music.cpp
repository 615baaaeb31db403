#include "Music.h"

#include "AudioFile.h"
#include "LogManager.h"
#include "PlaybackDevice.h"

namespace gw {

int Music::loadMusic(std::string filename) {
  if (!openAudioFile(filename, [&] { return music.openFromFile(filename); })) {
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
  music.setLooping(loop);
  music.play();
}

void Music::stop() {
  music.stop();
}

void Music::pause() {
  music.pause();
}

} // namespace gw
