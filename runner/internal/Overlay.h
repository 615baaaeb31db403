#pragma once

#include "Color.h"
#include "Vector.h"

#include <functional>
#include <string>

namespace gw {

class TextScreen;

/// Takes a text at a position, in cells.
using DrawText = std::function<void(Vector where, const std::string &text, Color color)>;

/// Draws over a frame what helps to find faults: every object's box (its edges only where
/// the frame is blank) and id, and a status line in the upper left corner.
/// @param frame what is there without it
void drawOverlay(const TextScreen &frame, const std::string &status,
                 const DrawText &draw);

} // namespace gw
