#pragma once

#include <SFML/Graphics/Color.hpp>
#include <SFML/Graphics/Font.hpp>
#include <SFML/Graphics/Glyph.hpp>
#include <SFML/Graphics/Image.hpp>
#include <SFML/Graphics/Rect.hpp>
#include <SFML/System/Vector2.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace gw {

/// The bold glyphs of a font at one size, and stamps: characters as they look on whole
/// pixels, ready to be copied. Glyphs are made when they are first asked for, stamps for
/// each pair of colours; both stay. Belongs to the character batch.
class GlyphCache {
public:
  /// A character on whole pixels.
  struct Stamp {
    sf::Color color;                   ///< of the ink
    sf::Color background;              ///< of the cell
    std::vector<std::uint32_t> pixels; ///< of the cell, row by row (Pixel.h)
    /// A pixel outside the cell.
    struct Overhang {
      sf::Vector2i place;       ///< relative to the cell's upper-left corner
      std::uint8_t opacity = 0; ///< 255 covers
    };
    std::vector<Overhang> overhang; ///< the ink outside the cell
  };

  /// A glyph, and the opacity of its ink when it stands on whole pixels.
  struct Glyph {
    sf::Glyph glyph;                   ///< as the font has it
    sf::IntRect area;                  ///< of ink, relative to the character's position
    std::vector<std::uint8_t> opacity; ///< of this area, row by row; 255 covers
    std::vector<Stamp> stamps;         ///< see `getStamp`
  };

  /// @param init_font not owned; must stay alive as long as the cache
  /// @param init_size of the characters, in pixels
  GlyphCache(const sf::Font &init_font, unsigned init_size);

  /// Size of the characters, in pixels. The base line is as far below the top.
  unsigned getSize() const { return size; }

  /// The font's texture, in which the glyphs stand. It grows with new glyphs: to be
  /// asked for when it is needed, not kept.
  const sf::Texture &getTexture() const { return font.getTexture(size); }

  /// The character's glyph, which stays where it is and belongs to the cache. Null for a
  /// character that shows nothing: blanks, control characters, and all that are not made
  /// yet when the font turns out to be damaged (a WARNING says so).
  Glyph *find(char ch);

  /// The glyph's character in these colours. Valid until the next call.
  /// @param cell the character's background, relative to its position, in pixels; must
  /// have the same size each time
  const Stamp &getStamp(Glyph &glyph, sf::IntRect cell, sf::Color color,
                        sf::Color background) const;

private:
  void loadAll();
  bool make(char ch);
  Glyph load(char ch, const sf::Image &texture) const;

  const sf::Font &font;
  unsigned size;
  std::array<std::optional<Glyph>, 256> glyphs;
  bool is_font_damaged = false; ///< no more glyphs are asked for
  long long making_time = 0;    ///< of all glyphs so far, in microseconds
};

} // namespace gw
