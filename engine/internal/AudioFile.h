#pragma once

#include <functional>
#include <string>

namespace gw {

/// Opens a sound file with the audio library, unless the library could not cope with it:
/// it reads a directory or a pipe for ever, and it ends the process for more than eight
/// channels. Files whose number of channels we cannot tell (Sony's wave 64) are refused,
/// too.
/// @param open opens the file with the library; called at most once
/// @return what `open` returned; false for a refused file, and when there is not enough
/// memory for what the file claims to hold. Logs nothing.
bool openAudioFile(const std::string &filename, const std::function<bool()> &open);

} // namespace gw
