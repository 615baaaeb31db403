#pragma once

namespace gw {

/// A pair of floats: a position in cells (x to the right, y downward, from the top-left
/// corner of the display), a direction, or a velocity in cells per step. A plain value.
/// Positions may lie between cells.
class Vector {
public:
  /// Without arguments: (0, 0). @{
  Vector() = default;
  Vector(float init_x, float init_y) : x(init_x), y(init_y) {} ///@}

  /// Its two parts. @{
  void setX(float new_x) { x = new_x; }
  float getX() const { return x; }
  void setY(float new_y) { y = new_y; }
  float getY() const { return y; }
  void setXY(float new_x, float new_y); ///@}

  /// Length, in single precision.
  float getMagnitude() const;

  /// Scales to length 1. A zero vector is left as it is.
  void normalize();

  /// Multiplies both parts by `s`.
  void scale(float s);

  /// The sum, part by part.
  Vector operator+(const Vector &other) const;

private:
  float x = 0;
  float y = 0;
};

} // namespace gw
