#pragma once

#include <functional>
#include <string>

namespace gw {

/// Has the audio library open a file, or refuses to when that would not return: of a
/// directory or a pipe it reads for ever, and sounds of more than eight channels, or of
/// a container whose channels we cannot tell (Sony's wave 64), end the process.
/// @param open asks the library; only called for a file that it copes with
/// @return what `open` did; false for a refused file, and when there is no memory for
/// what the file claims to hold
bool openAudioFile(const std::string &filename, const std::function<bool()> &open);

} // namespace gw
