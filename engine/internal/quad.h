#pragma once

#include <SFML/Graphics/Color.hpp>
#include <SFML/Graphics/Rect.hpp>
#include <SFML/Graphics/Vertex.hpp>

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

} // namespace gw
