#include "Sound.h"

#include "AudioFile.h"
#include "LogManager.h"
#include "PlaybackDevice.h"

namespace gw {

/// The player goes first: it reads the buffer.
Sound::~Sound() {
  p_sound.reset();
}

int Sound::loadSound(std::string filename) {
  sf::SoundBuffer loaded;
  if (!openAudioFile(filename, [&] { return loaded.loadFromFile(filename); })) {
    LogManager::getInstance().writeLog(
        WARNING, "gw::Sound::loadSound() - Could not load sound file '%s'.",
        filename.c_str());
    return -1;
  }
  p_sound.reset();
  sound_buffer = loaded;
  p_sound = std::make_unique<sf::Sound>(sound_buffer);
  requirePlaybackDevice();
  return 0;
}

void Sound::play(bool loop) {
  if (p_sound) {
    p_sound->play();
    p_sound->setLooping(loop);
  }
}

void Sound::stop() {
  if (p_sound)
    p_sound->stop();
}

void Sound::pause() {
  if (p_sound)
    p_sound->pause();
}

sf::Sound Sound::getSound() const {
  return p_sound ? *p_sound : sf::Sound(sound_buffer);
}

} // namespace gw
