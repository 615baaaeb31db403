#pragma once

#include <SFML/Graphics/Rect.hpp>
#include <SFML/System/Vector2.hpp>

#include <cstdint>
#include <vector>

namespace gw {

/// A set of pixels of a picture, one bit each. Areas are in pixels; what lies outside the
/// picture is ignored.
class PixelSet {
public:
  /// Empty, for a picture of that size.
  void reset(sf::Vector2i new_size);

  /// Puts all pixels of the area in, or takes them out. @{
  void insert(sf::IntRect area);
  void remove(sf::IntRect area); ///@}

  /// Whether any pixel of the area is in the set.
  bool intersects(sf::IntRect area) const;

private:
  /// Calls `visit` for each column of words that holds pixels of the area: with the
  /// index of its first word and of the one after its last, and the mask of the bits in
  /// each of them that belong to the area.
  template <class Visit> void forEachColumn(sf::IntRect area, Visit visit) const;

  sf::Vector2i size;
  bool is_empty = true; ///< false: may hold pixels, or not

  /// A word holds 64 pixels of a row. The next word in memory is the one below it in the
  /// picture, so that the words of an area are few runs.
  std::vector<std::uint64_t> words;
};

} // namespace gw
