#include "PlaybackDevice.h"

#include "LogManager.h"

#include <SFML/Audio.hpp>

#include <optional>
#include <string>

namespace gw {

namespace {

/// What the audio library calls its null device. It takes that by itself where no
/// device is listed at all.
constexpr const char *NULL_DEVICE = "NULL Playback Device";

bool looked = false;

} // namespace

void requirePlaybackDevice() {
  if (looked)
    return;
  looked = true;
  const std::optional<std::string> device = sf::PlaybackDevice::getDevice();
  if (device && device != NULL_DEVICE)
    return;
  const bool silenced = device || sf::PlaybackDevice::setDeviceToNull();
  LogManager::getInstance().writeLog(
      WARNING, "gw::requirePlaybackDevice() - No playback device can be opened. %s",
      silenced ? "Going on without sound." : "The null device cannot be opened either.");
}

} // namespace gw
