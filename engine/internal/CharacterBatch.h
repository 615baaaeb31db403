#pragma once

#include "internal/GlyphCache.h"
#include "internal/PictureTexture.h"
#include "internal/PixelSet.h"

#include <SFML/Graphics/RenderTarget.hpp>
#include <SFML/Graphics/Vertex.hpp>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace gw {

/// Collects the characters of a frame, in the order in which they are painted, and draws
/// them together. Every pixel is as if each character had been drawn by itself: a
/// rectangle in the background's colour, then a bold glyph. Belongs to the display
/// manager; each frame is `clear`, any number of `addRow`, `draw`.
///
/// What stands on whole pixels is painted into a picture in memory; what does not, and
/// what is painted over it afterwards, becomes triangles on top of that picture
/// (docs/engine.md).
class CharacterBatch {
public:
  /// Nothing may be added before the first `clear`.
  /// @param init_picture_size of what the target shows, in pixels; a target of another
  /// size shows it scaled
  /// @param init_cell size of a character's background, in pixels
  CharacterBatch(sf::Vector2i init_picture_size, sf::Vector2f init_cell);

  /// The font of the glyphs; until there is one, characters are backgrounds only.
  /// @param font not owned; must stay alive as long as this object
  void setFont(const sf::Font &font);

  /// Begins a frame of that colour. What was added and not drawn is dropped. The target
  /// itself is cleared or covered by the first `draw`.
  void clear(sf::Color color);

  /// Adds characters side by side, the first one `first` cells to the right of `origin`
  /// (pixels). What lies outside the picture is left out, unless the target is shared.
  void addRow(sf::Vector2f origin, int first, std::string_view row, sf::Color color,
              sf::Color background);

  /// Draws what was added since the last call.
  void draw(sf::RenderTarget &target);

  /// Until the next `clear`, others may draw on the target, too, or have it show another
  /// part of the world. What is added from now on is drawn without regard to what is
  /// there.
  void shareTarget();

private:
  /// The last background among the triangles, and the pixels of the glyph after it.
  struct LastBackground {
    std::size_t first_vertex;
    sf::FloatRect area; ///< pixels
    sf::Color color;
    sf::IntRect glyph; ///< touched; empty without one
  };

  /// A glyph of the font as triangles.
  struct GlyphQuad {
    sf::FloatRect area;   ///< pixels
    sf::FloatRect texels; ///< in the font's texture
    sf::Color color;
    sf::IntRect touched; ///< pixels that get ink
  };

  void add(sf::Vector2f position, char ch, sf::Color color, sf::Color background);
  bool isUntouched(sf::IntRect area) const;
  bool isVisible(sf::FloatRect area) const;
  sf::FloatRect backgroundArea(sf::Vector2f position, std::size_t count) const;

  /// Calls `visit` for areas of the picture, none overlapping another, that together
  /// hold everything painted.
  template <class Visit> void forEachPaintedRun(Visit visit) const;

  auto pixelAt(int x, int y) { return picture.begin() + y * stride + x; }
  void fill(sf::IntRect area, sf::Color color);
  void paint(sf::IntRect area, sf::Color background, sf::Vector2i position,
             GlyphCache::Glyph *p_glyph, sf::Color color);
  void copy(const GlyphCache::Stamp &stamp, sf::IntRect area);
  void addBackground(sf::FloatRect area, sf::Color color);
  bool joinBackground(sf::FloatRect area, sf::Color color);
  void addGlyph(sf::Vector2f position, const GlyphCache::Glyph &glyph, sf::Color color);
  void addLastGlyph(sf::FloatRect next_background);
  void drawPicture(sf::RenderTarget &target);

  sf::Vector2i picture_size;        ///< pixels
  sf::Vector2f cell;                ///< pixels
  std::optional<GlyphCache> glyphs; ///< none without a font

  sf::Color clear_color;
  bool is_shared = false;
  bool is_begun = false; ///< the target was covered or cleared in this frame
  sf::Vector2f visible_first, visible_end; ///< of the target; pixels, the end excluded

  int stride;                         ///< pixels from a row of the picture to the next
  std::vector<std::uint32_t> picture; ///< row by row (Pixel.h); empty before `clear`
  PixelSet painted; ///< where the picture may differ from the clear colour
  PictureTexture texture;
  bool has_no_texture = false;    ///< it could not be made
  std::vector<sf::IntRect> areas; ///< kept for its memory only

  std::vector<sf::Vertex> vertices;    ///< triangles on top of the picture, not yet drawn
  std::optional<GlyphQuad> last_glyph; ///< not yet among them
  std::optional<LastBackground> last_background; ///< of this row
  PixelSet covered;                              ///< touched by these triangles
};

} // namespace gw
