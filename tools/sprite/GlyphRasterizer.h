#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// How much of each pixel a glyph covers, row by row.
struct Glyph {
  int left = 0; ///< pixels from the left side of the character's cell
  int top = 0;  ///< pixels from the top of the cell
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> coverage; ///< 0 to 255, `width` times `height` of them
};

/// The bold glyphs of a font file at the size of the game's letters, pixel by pixel
/// the same as there. The game's own way to them (sf::Font::getGlyph) ends the
/// process where there is no display; this one needs none.
class GlyphRasterizer {
public:
  /// @return false when the file is not an outline font that can be read
  bool open(const std::string &filename);

  /// Empty for characters that show nothing. Stays valid as long as this object.
  const Glyph &get(char ch);

private:
  Glyph rasterize(unsigned char ch);

  using Library = std::unique_ptr<FT_LibraryRec_, FT_Error (*)(FT_Library)>;
  using Face = std::unique_ptr<FT_FaceRec_, FT_Error (*)(FT_Face)>;

  Library library{nullptr, FT_Done_FreeType};
  Face face{nullptr, FT_Done_Face};
  std::array<std::optional<Glyph>, 256> glyphs;
};
