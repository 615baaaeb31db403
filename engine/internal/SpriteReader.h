#pragma once

#include "Sprite.h"

#include <istream>
#include <memory>

namespace gw {

/// Reads one sprite file (docs/sprite-format.md), for the resource manager and for tools.
/// Takes no more memory than the file is large, whatever its numbers claim.
/// @param file open for reading, at its start
/// @return the sprite, without a label; null for a malformed file, with ERRORs that tell
/// the number of the line, what was expected, and the line itself (`shortened`)
std::unique_ptr<Sprite> readSprite(std::istream &file);

} // namespace gw
