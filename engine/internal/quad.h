#pragma once

#include <SFML/Graphics/Color.hpp>
#include <SFML/Graphics/Rect.hpp>
#include <SFML/Graphics/RenderStates.hpp>
#include <SFML/Graphics/RenderTarget.hpp>
#include <SFML/Graphics/Vertex.hpp>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace gw {

/// @file
/// Rectangles as two triangles each.

/// Which of a rectangle's six vertices are at its right edge.
constexpr std::size_t RIGHT_VERTICES[] = {1, 4, 5};

/// Appends a rectangle. @param area where it is drawn @param texels what it shows of the
/// texture
inline void addQuad(std::vector<sf::Vertex> &triangles, sf::FloatRect area,
                    sf::FloatRect texels, sf::Color color) {
  const sf::Vector2f a = area.position;
  const sf::Vector2f b = area.position + area.size;
  const sf::Vector2f s = texels.position;
  const sf::Vector2f t = texels.position + texels.size;
  const sf::Vertex top_left{a, color, s};
  const sf::Vertex top_right{{b.x, a.y}, color, {t.x, s.y}};
  const sf::Vertex bottom_left{{a.x, b.y}, color, {s.x, t.y}};
  const sf::Vertex bottom_right{b, color, t};
  triangles.insert(triangles.end(), {top_left, top_right, bottom_left, bottom_left,
                                     top_right, bottom_right});
}

/// Draws rectangles, not too many at once: software OpenGL takes up to 1024 vertices
/// together, and two triangles as one rectangle only where none of these is cut in half.
inline void drawQuads(sf::RenderTarget &target, const std::vector<sf::Vertex> &triangles,
                      const sf::RenderStates &states) {
  constexpr std::size_t MOST = 1020; // vertices, a multiple of 6
  for (std::size_t i = 0; i < triangles.size(); i += MOST)
    target.draw(&triangles[i], std::min(MOST, triangles.size() - i),
                sf::PrimitiveType::Triangles, states);
}

} // namespace gw
