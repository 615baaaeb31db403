#include "PlaybackDevice.h"

#include "LogManager.h"

#include <SFML/Audio.hpp>

namespace gw {

namespace {

bool looked = false;

} // namespace

void requirePlaybackDevice() {
  if (looked)
    return;
  looked = true;
  if (sf::PlaybackDevice::getDevice())
    return;
  const bool silenced = sf::PlaybackDevice::setDeviceToNull();
  LogManager::getInstance().writeLog(
      WARNING, "gw::requirePlaybackDevice() - No playback device can be opened. %s",
      silenced ? "Going on without sound." : "The null device cannot be opened either.");
}

} // namespace gw
