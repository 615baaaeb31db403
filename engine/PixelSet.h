#pragma once

#include <SFML/Graphics/Rect.hpp>
#include <SFML/System/Vector2.hpp>

#include <cstdint>
#include <vector>

namespace gw {

/// A set of the pixels of a picture, one bit each. Areas are in pixels; what lies
/// outside the picture is ignored.
class PixelSet {
public:
  static constexpr int WORD_PIXELS = 64;

  /// Empty, for a picture of that size.
  void reset(sf::Vector2i new_size);

  void insert(sf::IntRect area);
  void remove(sf::IntRect area);

  /// Whether any pixel of the area is in the set.
  bool intersects(sf::IntRect area) const;

  /// Whether any is of the `WORD_PIXELS` pixels from x = `WORD_PIXELS` * `word` on, in
  /// the rows from `top` up to but not including `bottom`. All inside the picture.
  bool hasAny(int word, int top, int bottom) const;

  /// Words in a row.
  int getWordsPerRow() const { return words_per_row; }

private:
  /// Calls `visit` with the index of every word that holds bits of the area, and
  /// with the mask of these bits, until it returns true. @return whether it did
  template <class Visit> bool forEachWord(sf::IntRect area, Visit visit) const;

  sf::Vector2i size;
  int words_per_row = 0;
  std::vector<std::uint64_t> words; ///< row by row
};

} // namespace gw
