#pragma once

#include "Vector.h"

namespace gw {

/// @file
/// More arithmetic for vectors, for those who include it. How far it is from `a` to `b`:
/// `(b - a).getMagnitude()`.

/// The difference, part by part: the way from `b` to `a`.
inline Vector operator-(Vector a, Vector b) {
  return Vector(a.getX() - b.getX(), a.getY() - b.getY());
}

/// Both parts times `factor`. @{
inline Vector operator*(Vector vector, float factor) {
  return Vector(vector.getX() * factor, vector.getY() * factor);
}
inline Vector operator*(float factor, Vector vector) {
  return vector * factor;
} ///@}

/// Whether both parts are equal, exactly: what was computed in two ways seldom is. @{
inline bool operator==(Vector a, Vector b) {
  return a.getX() == b.getX() && a.getY() == b.getY();
}
inline bool operator!=(Vector a, Vector b) {
  return !(a == b);
} ///@}

} // namespace gw
