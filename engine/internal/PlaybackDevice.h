#pragma once

namespace gw {

/// Mutes everything from now on: selects the audio library's null device, or sets the
/// volume to zero where that cannot be selected (before SFML 3.1).
void silencePlayback();

/// Call it after a sound or a piece of music was loaded. The first call checks whether a
/// playback device could be opened. If not, it selects the audio library's null device,
/// unless that is in use already, and writes a WARNING; the program goes on in silence.
/// Before SFML 3.1 the null device cannot be selected. A sound card that is listed but
/// cannot be opened then makes every call complain on the standard error stream, and no
/// sound ends; the WARNING says so.
void requirePlaybackDevice();

} // namespace gw
