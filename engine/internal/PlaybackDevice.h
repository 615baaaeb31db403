#pragma once

namespace gw {

/// Has nobody hear anything from now on. The audio library's null device is chosen, or,
/// where there is no way to choose it (before SFML 3.1), the volume becomes zero.
void silencePlayback();

/// To be called once a sound or a piece of music is loaded: the first call looks
/// whether a playback device could be opened. When none could, it switches to
/// the audio library's null device (unless that is in use already), writes a
/// WARNING, and the program goes on in silence. Left alone, a sound card that is listed
/// but cannot be opened makes every call complain on the standard error stream, and no
/// sound ever ends. That is how it stays before SFML 3.1, which has no way to switch; the
/// WARNING says so.
void requirePlaybackDevice();

} // namespace gw
