#pragma once

#include <cstdint>

/// The full screen that every program of the comparison draws: each cell holds
/// another character than its neighbours, in one of eight colours on black, and in
/// the next frame again another one. Nothing of a frame can be kept for the next.
namespace bench {

constexpr int COLUMNS = 128;    ///< cells
constexpr int ROWS = 48;        ///< cells
constexpr int CELL_WIDTH = 8;   ///< pixels
constexpr int CELL_HEIGHT = 16; ///< pixels

struct Rgb {
  std::uint8_t red, green, blue;
};

/// The engine's colours in the engine's order, black included: a black character is
/// drawn like any other.
constexpr Rgb COLORS[] = {{0, 0, 0},   {255, 0, 0},   {0, 255, 0},   {255, 255, 0},
                          {0, 0, 255}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255}};

inline char characterAt(int x, int y, int frame) {
  return static_cast<char>('!' + (x + y * 7 + frame) % 94);
}

/// An index into `COLORS`.
inline int colorAt(int x, int y, int frame) {
  return (x + y + frame) % 8;
}

} // namespace bench
