#pragma once

#include <array>
#include <cstdint>

namespace gw {

/// The eight colours. `COLORS` says what they are called and how they look.
enum Color : int {
  BLACK = 0,
  RED = 1,
  GREEN = 2,
  YELLOW = 3,
  BLUE = 4,
  MAGENTA = 5,
  CYAN = 6,
  WHITE = 7,
};

/// Stands in for an invalid colour, and is what a new sprite has.
constexpr Color COLOR_DEFAULT = WHITE;

/// What there is to know about a colour.
struct ColorDefinition {
  const char *name = "";  ///< in sprite files, and in lines of the log
  std::uint8_t red = 0;   ///< 0 to 255
  std::uint8_t green = 0; ///< 0 to 255
  std::uint8_t blue = 0;  ///< 0 to 255
};

/// All colours; the index is the `Color`.
inline constexpr std::array<ColorDefinition, 8> COLORS = {{
    {"black", 0, 0, 0},
    {"red", 255, 0, 0},
    {"green", 0, 255, 0},
    {"yellow", 255, 255, 0},
    {"blue", 0, 0, 255},
    {"magenta", 255, 0, 255},
    {"cyan", 0, 255, 255},
    {"white", 255, 255, 255},
}};

/// Whether it is one of the eight, and not some other number.
constexpr bool isColorValid(Color color) {
  return color >= BLACK && color <= WHITE;
}

/// Its definition; that of `COLOR_DEFAULT` for an invalid colour.
constexpr const ColorDefinition &definitionOf(Color color) {
  return COLORS[static_cast<std::size_t>(isColorValid(color) ? color : COLOR_DEFAULT)];
}

} // namespace gw
