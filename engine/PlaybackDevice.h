#pragma once

namespace gw {

/// To be called once a sound or a piece of music is loaded: the first call looks
/// whether a playback device could be opened. When none could, it switches to
/// the audio library's null device (unless that is in use already), writes a
/// WARNING, and the program goes on in silence. Left alone, a sound card that is listed
/// but cannot be opened makes every call complain on the standard error stream, and no
/// sound ever ends.
void requirePlaybackDevice();

} // namespace gw
