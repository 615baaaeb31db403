#pragma once

#include <cmath>
#include <random>
#include <vector>

/// The world that the engine and the physics library both move: boxes of an
/// insect's size and speed, as dense as thirty on a screen, however many there are.
/// Boxes pass through each other, every overlap is told to a handler that counts it,
/// and a box whose centre has left the field flies back.
namespace bench {

constexpr float BOX_WIDTH = 9;  ///< cells
constexpr float BOX_HEIGHT = 5; ///< cells

struct Mover {
  float x, y;                   ///< centre, in cells
  float velocity_x, velocity_y; ///< cells per step
};

struct Field {
  float width, height; ///< cells
  std::vector<Mover> movers;
};

/// The same field in every program and run.
inline Field makeField(int count) {
  const float screens = std::sqrt(static_cast<float>(count) / 30);
  Field field{128 * screens, 48 * screens, {}};
  std::mt19937 generator(1);
  const auto between = [&generator](float low, float high) {
    return low + (high - low) * (static_cast<float>(generator() >> 8) / 16777216.f);
  };
  for (int i = 0; i < count; i++) {
    const float x = between(0, field.width);
    const float y = between(0, field.height);
    const float velocity_x = between(-1.4f, 1.4f);
    field.movers.push_back({x, y, velocity_x, between(-.9f, .9f)});
  }
  return field;
}

/// Whether something at `position` moves away from a field that goes from 0 to `size`.
inline bool isLeaving(float position, float velocity, float size) {
  return position < 0 ? velocity < 0 : position > size && velocity > 0;
}

} // namespace bench
