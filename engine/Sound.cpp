#include "Sound.h"

#include "LogManager.h"
#include "internal/AudioFile.h"
#include "internal/PlaybackDevice.h"

#include <SFML/Audio/Sound.hpp>
#include <SFML/Audio/SoundBuffer.hpp>

#include <utility>

namespace gw {

Sound::Sound() : p_samples(std::make_unique<sf::SoundBuffer>()) {
}

Sound::~Sound() = default;

int Sound::loadSound(std::string filename) {
  auto p_loaded = std::make_unique<sf::SoundBuffer>();
  if (!openAudioFile(filename, [&] { return p_loaded->loadFromFile(filename); })) {
    LogManager::getInstance().writeLog(
        WARNING, "gw::Sound::loadSound() - Could not load sound file '%s'.",
        filename.c_str());
    return -1;
  }
  p_sound.reset();
  p_samples = std::move(p_loaded);
  p_sound = std::make_unique<sf::Sound>(*p_samples);
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
  return p_sound ? *p_sound : sf::Sound(*p_samples);
}

} // namespace gw
