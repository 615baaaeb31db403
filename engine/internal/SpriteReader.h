#pragma once

#include "Sprite.h"

#include <istream>
#include <memory>

namespace gw {

/// Reads one sprite file in the text format of docs/sprite-format.md: the
/// resource manager's half that knows the format; tools use it as well. Memory is
/// bounded by the size of the file, whatever its numbers claim.
/// @param file open for reading, at its start
/// @return the sprite, without a label; null with ERRORs that tell the line, what
/// was expected there, and the line itself (its first 200 characters, if it is longer)
std::unique_ptr<Sprite> readSprite(std::istream &file);

} // namespace gw
