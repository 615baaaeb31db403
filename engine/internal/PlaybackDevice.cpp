#include "internal/PlaybackDevice.h"

#include "LogManager.h"
#include "internal/platform.h"

#include <SFML/Audio.hpp>

#include <optional>
#include <string>

namespace gw {

namespace {

/// What the audio library calls its null device. It takes that by itself where no
/// device is listed at all.
constexpr const char *NULL_DEVICE = "NULL Playback Device";

bool looked = false;

/// @return false also where the library has no way to, which came with 3.1
bool selectNullDevice() {
#if GW_IS_SFML_3_0
  return false;
#else
  return sf::PlaybackDevice::setDeviceToNull();
#endif
}

} // namespace

void silencePlayback() {
  if (!selectNullDevice())
    sf::Listener::setGlobalVolume(0);
}

void requirePlaybackDevice() {
  if (looked)
    return;
  looked = true;
  const std::optional<std::string> device = sf::PlaybackDevice::getDevice();
  if (device && device != NULL_DEVICE)
    return;
  const bool silenced = device || selectNullDevice();
  LogManager::getInstance().writeLog(
      WARNING, "gw::requirePlaybackDevice() - No playback device can be opened. %s",
      silenced
          ? "Going on without sound."
          : "The null device cannot be chosen either; the audio library will complain.");
}

} // namespace gw
