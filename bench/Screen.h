#pragma once

#include "Color.h"

/// The full screen that every program of the comparison draws: each cell holds
/// another character than its neighbours, in one of eight colours on black, and in
/// the next frame again another one. Nothing of a frame can be kept for the next.
namespace bench {

constexpr int COLUMNS = 128;    ///< cells
constexpr int ROWS = 48;        ///< cells
constexpr int CELL_WIDTH = 8;   ///< pixels
constexpr int CELL_HEIGHT = 16; ///< pixels

inline char characterAt(int x, int y, int frame) {
  return static_cast<char>('!' + (x + y * 7 + frame) % 94);
}

/// Black included: a black character is drawn like any other.
inline gw::Color colorAt(int x, int y, int frame) {
  return static_cast<gw::Color>((x + y + frame) % static_cast<int>(gw::COLORS.size()));
}

} // namespace bench
