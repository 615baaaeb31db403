#include "Vector.h"

#include <cmath>

namespace gw {

void Vector::setXY(float new_x, float new_y) {
  x = new_x;
  y = new_y;
}

float Vector::getMagnitude() const {
  return std::sqrt(x * x + y * y);
}

void Vector::normalize() {
  const float magnitude = getMagnitude();
  if (magnitude > 0) {
    x /= magnitude;
    y /= magnitude;
  }
}

void Vector::scale(float s) {
  x *= s;
  y *= s;
}

Vector Vector::operator+(const Vector &other) const {
  return Vector(x + other.x, y + other.y);
}

} // namespace gw
