#pragma once

#include "PixelSet.h"

#include <SFML/Graphics.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace gw {

/// Collects a frame's characters in painter's order and draws them together. What
/// appears is equal in every pixel to drawing each character by itself, first a
/// rectangle in the background's colour, then a bold glyph; only much faster.
/// Belongs to the display manager.
///
/// A full screen drawn one by one takes 235 ms with software OpenGL, as one array
/// of triangles 40 ms, in this way 6 ms:
/// - A character that stands on whole pixels, as nearly all do, is copied from a stamp
///   of itself into a picture in memory, which goes to the graphics card as one
///   texture, and only where something is on it.
/// - All others become triangles, drawn on top of the picture, and so does what is
///   painted over them afterwards.
/// - A background on pixels that still have its colour paints nothing and is left
///   out: the border alone is a screen full of blanks.
class CharacterBatch {
public:
  /// Where a frame starts from: a target that was cleared to `color`. What was collected
  /// before is dropped.
  /// @param size of the picture that the target shows, in pixels; a target of another
  /// size shows it scaled
  void clear(sf::Vector2i size, sf::Color color);

  /// Adds characters side by side, each of `cell` pixels: the glyph of the first one
  /// `first` cells to the right of `origin` (pixels). Outside the picture nothing is
  /// added, unless the target is shared.
  /// @param p_font of the glyphs; null leaves glyphs out. It must stay the same and stay
  /// alive until `release`.
  void addRow(sf::Vector2f origin, int first, std::string_view row, sf::Vector2f cell,
              sf::Color color, sf::Color background, const sf::Font *p_font);

  /// Draws what was collected since the last call.
  void draw(sf::RenderTarget &target);

  /// From now on, until the next `clear`, somebody else may draw on the target as
  /// well, and choose what part of the world it shows: nothing is taken for granted
  /// about what is on it.
  void shareTarget() { is_shared = true; }

  /// Gives back everything: glyphs, texture, memory.
  void release();

private:
  /// A character on whole pixels as it is painted into its cell.
  struct Stamp {
    sf::Color color, background;
    std::vector<std::uint32_t> pixels; ///< of the cell, row by row
    /// A pixel outside the cell.
    struct Overhang {
      sf::Vector2i place;       ///< relative to the cell's upper-left corner
      std::uint8_t opacity = 0; ///< 255 covers
    };
    std::vector<Overhang> overhang; ///< the ink outside the cell
  };

  /// A glyph, and the opacity of its ink when it stands on whole pixels.
  struct Glyph {
    sf::Glyph glyph;
    sf::IntRect area;                  ///< of ink, relative to the character's position
    std::vector<std::uint8_t> opacity; ///< of this area, row by row; 255 covers
    std::vector<Stamp> stamps;         ///< one for each pair of colours seen so far
  };

  /// A glyph of the font as triangles.
  struct GlyphQuad {
    sf::FloatRect area;   ///< pixels
    sf::FloatRect texels; ///< in the font's texture
    sf::Color color;
    sf::IntRect touched; ///< pixels that get ink
  };

  void add(sf::Vector2f position, sf::Vector2f cell, char ch, sf::Color color,
           sf::Color background, const sf::Font *p_font);
  bool areBlanksUnseen(sf::FloatRect area);
  bool isUntouched(sf::IntRect area) const;
  Glyph *getGlyph(char ch, unsigned size, const sf::Font *p_font);
  void loadGlyphs(const sf::Font &font);
  bool makeGlyph(char ch, const sf::Font &font);
  Glyph loadGlyph(char ch, const sf::Font &font, const sf::Image &texture) const;

  /// Calls `visit` for areas of the picture, none overlapping another, that together
  /// hold everything painted.
  template <class Visit> void forEachPaintedRun(Visit visit) const;

  auto pixelAt(int x, int y) { return picture.begin() + y * stride + x; }
  void fill(sf::IntRect area, sf::Color color);
  void paint(sf::IntRect cell, sf::Color background, sf::Vector2i position,
             Glyph *p_glyph, sf::Color color);
  const Stamp &getStamp(Glyph &glyph, sf::IntRect cell, sf::Color color,
                        sf::Color background);
  void copy(const Stamp &stamp, sf::IntRect cell);
  void addBackground(sf::FloatRect area, sf::Color color);
  void addGlyph(sf::Vector2f position, const Glyph &glyph, sf::Color color);
  void addLastGlyph(sf::FloatRect next_background);
  void addQuad(std::vector<sf::Vertex> &triangles, sf::FloatRect area,
               sf::FloatRect texture_area, sf::Color color);
  void drawPicture(sf::RenderTarget &target);
  bool makeTexture();
  bool isVisible(sf::FloatRect area) const;

  sf::Vector2i picture_size; ///< pixels
  sf::Color clear_color;
  bool is_shared = false;

  int stride = 0;                     ///< pixels from a row of the picture to the next
  std::vector<std::uint32_t> picture; ///< red, green, blue, alpha bytes; row by row
  PixelSet painted; ///< where the picture may differ from the clear colour
  std::optional<sf::Texture> texture;       ///< of the picture
  bool has_no_texture = false;              ///< it could not be made
  std::vector<sf::Vertex> picture_vertices; ///< kept for its memory only

  std::vector<sf::Vertex> vertices;    ///< triangles on top of the picture, not yet drawn
  std::optional<GlyphQuad> last_glyph; ///< not yet among them
  PixelSet covered;                    ///< touched by these triangles

  const sf::Font *p_glyph_font = nullptr; ///< not owned
  unsigned glyph_size = 0;                ///< character size of `glyphs`, pixels
  std::array<std::optional<Glyph>, 256> glyphs;
  bool is_font_damaged = false;    ///< no more glyphs are asked for
  long long glyph_making_time = 0; ///< so far, in microseconds
};

} // namespace gw
