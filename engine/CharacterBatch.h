#pragma once

#include <SFML/Graphics.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace gw {

/// Collects a frame's characters in painter's order, as triangles, and draws
/// them with one call. What appears is equal in every pixel to drawing each
/// character by itself, first a rectangle in the background's colour, then a bold
/// glyph; only much faster (a full screen took 235 ms that way with software
/// OpenGL). Belongs to the display manager.
///
/// A background on pixels that still have its colour paints nothing and is left
/// out, which is most of them: the border alone is a screen full of blanks. For
/// that the batch keeps one bit for every pixel.
class CharacterBatch {
public:
  /// Where a frame starts from: a target of `size` pixels that was cleared to
  /// `color`. What was collected before is dropped.
  void clear(sf::Vector2u size, sf::Color color);

  /// Adds a character of `cell` pixels, its glyph at `position` (pixels). Outside
  /// the target nothing is added.
  /// @param p_font of the glyph; null leaves the glyph out. It must stay the same
  /// and stay alive until `release`.
  void add(sf::Vector2f position, sf::Vector2f cell, char ch, sf::Color color,
           sf::Color background, const sf::Font *p_font);

  /// Draws what was collected since the last call.
  void draw(sf::RenderTarget &target);

  /// Gives back everything, glyphs and memory.
  void release();

private:
  void addBackground(sf::FloatRect area, sf::Color color);
  void addGlyph(sf::Vector2f position, char ch, unsigned size, sf::Color color);
  void addQuad(sf::FloatRect area, sf::FloatRect texture_area, sf::Color color);
  const sf::Glyph &getGlyph(char ch, unsigned size);

  bool isVisible(sf::FloatRect area) const;
  bool isPainted(sf::FloatRect area);
  void setPainted(sf::FloatRect area);
  void setClean(sf::FloatRect area);
  template <class Visit>
  void forEachWord(int left, int top, int right, int bottom, Visit visit);

  std::vector<sf::Vertex> vertices; ///< triangles, not yet drawn

  const sf::Font *font = nullptr; ///< not owned
  unsigned glyph_size = 0;        ///< character size of `glyphs`, pixels
  std::array<std::optional<sf::Glyph>, 256> glyphs;

  sf::Vector2i target_size; ///< pixels
  sf::Color clear_color;
  int words_per_row = 0;
  std::vector<std::uint64_t> painted; ///< a bit for every pixel that may differ from
                                      ///< the clear colour, row by row
};

} // namespace gw
