#pragma once

#include "Vector.h"

namespace gw {

/// An axis-aligned rectangle in cells. An object keeps its box relative to its
/// own position; `getWorldBox` (utility.h) gives it in world coordinates.
/// Nothing is validated: sizes may be 0 or negative.
class Box {
public:
  /// Without arguments: no size, corner at (0, 0). @{
  Box() = default;
  Box(Vector init_corner, float init_horizontal, float init_vertical)
      : corner(init_corner), horizontal(init_horizontal), vertical(init_vertical) {} ///@}

  /// The upper-left corner. @{
  void setCorner(Vector new_corner) { corner = new_corner; }
  Vector getCorner() const { return corner; } ///@}

  /// Width in cells. @{
  void setHorizontal(float new_horizontal) { horizontal = new_horizontal; }
  float getHorizontal() const { return horizontal; } ///@}

  /// Height in cells. @{
  void setVertical(float new_vertical) { vertical = new_vertical; }
  float getVertical() const { return vertical; } ///@}

private:
  Vector corner;
  float horizontal = 0;
  float vertical = 0;
};

} // namespace gw
