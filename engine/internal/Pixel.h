#pragma once

#include <SFML/Graphics/Color.hpp>

#include <cstdint>
#include <cstring>

namespace gw {

/// @file
/// Pixels of a picture in memory, as the graphics card takes them: a byte each for red,
/// green, blue and opacity, in this order.

/// The pixel of that colour.
inline std::uint32_t toPixel(sf::Color color) {
  const std::uint8_t bytes[] = {color.r, color.g, color.b, color.a};
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, bytes, sizeof pixel);
  return pixel;
}

/// Two bytes, each in 16 bits of its own, times `factor` / 255; rounded as the graphics
/// card does it.
inline std::uint32_t scaleBytes(std::uint32_t bytes, std::uint32_t factor) {
  constexpr std::uint32_t BYTES = 0x00ff00ff;
  const std::uint32_t products = bytes * factor + 0x00800080;
  return ((products + ((products >> 8) & BYTES)) >> 8) & BYTES;
}

/// A pixel over another one, both opaque.
/// @param opacity of the upper one: 255 hides the lower one
inline std::uint32_t blend(std::uint32_t below, std::uint32_t above,
                           std::uint32_t opacity) {
  constexpr std::uint32_t BYTES = 0x00ff00ff;
  const std::uint32_t even =
      scaleBytes(above & BYTES, opacity) + scaleBytes(below & BYTES, 255 - opacity);
  const std::uint32_t odd = scaleBytes(above >> 8 & BYTES, opacity) +
                            scaleBytes(below >> 8 & BYTES, 255 - opacity);
  return even | odd << 8;
}

} // namespace gw
