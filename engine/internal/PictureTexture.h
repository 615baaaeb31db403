#pragma once

#include <SFML/Graphics/Rect.hpp>
#include <SFML/Graphics/RenderTarget.hpp>
#include <SFML/Graphics/Shader.hpp>
#include <SFML/Graphics/Texture.hpp>
#include <SFML/Graphics/Vertex.hpp>
#include <SFML/System/Vector2.hpp>

#include <cstdint>
#include <optional>
#include <vector>

namespace gw {

/// Brings a picture in memory onto a target. Belongs to the character batch.
class PictureTexture {
public:
  /// @param init_size of the picture, in pixels
  /// @param init_stride pixels from one of its rows to the next
  PictureTexture(sf::Vector2i init_size, int init_stride)
      : size(init_size), stride(init_stride) {}

  /// Covers the target with the areas of the picture, and with `color` around them;
  /// scaled, where the target has another size.
  /// @param p_pixels row by row (Pixel.h)
  /// @param areas from top to bottom, none over another
  /// @return false when the graphics card has no room for the picture; then the target is
  /// only cleared
  bool draw(sf::RenderTarget &target, const std::uint32_t *p_pixels, sf::Color color,
            const std::vector<sf::IntRect> &areas);

private:
  bool make();
  void prepareCopying();
  void upload(const std::uint32_t *p_pixels, int first_row, int end_row);
  void drawAreas(sf::RenderTarget &target, const std::vector<sf::IntRect> &areas);

  sf::Vector2i size;                  ///< pixels
  int stride;                         ///< pixels
  std::optional<sf::Texture> texture; ///< none before the first area
  std::optional<sf::Shader> shader;   ///< none before the second picture
  std::vector<sf::Vertex> vertices;   ///< kept for its memory only
};

} // namespace gw
