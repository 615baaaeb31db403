#pragma once

#include "Sprite.h"

#include <istream>
#include <memory>
#include <string>

namespace gw {

/// Reads one sprite file (docs/sprite-format.md), for the resource manager and for tools.
/// Takes no more memory than the file is large, whatever its numbers claim.
/// @param file open for reading, at its start
/// @param remark of a malformed file: what is in the line at fault that one does not see
/// there, or overlooks, as "line 1: column 2 is a blank"; empty when there is no such
/// thing
/// @return the sprite, without a label; null for a malformed file, with ERRORs that tell
/// the number of the line, what was expected, and the line itself (`shortened`)
std::unique_ptr<Sprite> readSprite(std::istream &file, std::string &remark);

} // namespace gw
