#include "GlyphRasterizer.h"

#include "utility.h"

#include FT_BITMAP_H
#include FT_OUTLINE_H

namespace {

/// Pixels, the height of a cell; a character of the font is half as wide.
constexpr int CHARACTER_SIZE = 16;

/// How much wider bold strokes are, in 1/64 pixels.
constexpr FT_Pos BOLD = 64;

/// What a font has as a small picture already has bits rather than shades.
bool isReadable(const FT_Bitmap &bitmap) {
  return bitmap.pixel_mode == FT_PIXEL_MODE_GRAY ||
         bitmap.pixel_mode == FT_PIXEL_MODE_MONO;
}

std::uint8_t coverageAt(const FT_Bitmap &bitmap, int x, int y) {
  const unsigned char *row = bitmap.buffer + y * bitmap.pitch;
  if (bitmap.pixel_mode == FT_PIXEL_MODE_GRAY)
    return row[x];
  return row[x / 8] & (0x80 >> x % 8) ? 255 : 0;
}

bool isControl(unsigned char ch) {
  return ch < 32 || ch == 127;
}

} // namespace

bool GlyphRasterizer::open(const std::string &filename) {
  if (!gw::isRegularFile(filename))
    return false;
  FT_Library new_library = nullptr;
  if (FT_Init_FreeType(&new_library) != 0)
    return false;
  library.reset(new_library);
  FT_Face new_face = nullptr;
  if (FT_New_Face(library.get(), filename.c_str(), 0, &new_face) != 0)
    return false;
  face.reset(new_face);
  return FT_IS_SCALABLE(face) && FT_Set_Pixel_Sizes(new_face, 0, CHARACTER_SIZE) == 0;
}

const Glyph &GlyphRasterizer::get(char ch) {
  const auto code = static_cast<unsigned char>(ch);
  std::optional<Glyph> &glyph = glyphs[code];
  if (!glyph)
    glyph = rasterize(code);
  return *glyph;
}

Glyph GlyphRasterizer::rasterize(unsigned char ch) {
  constexpr FT_UInt MISSING_GLYPH = 0; // the font's box, for all that is not ASCII
  if (isControl(ch))
    return {};
  const FT_UInt index = ch < 128 ? FT_Get_Char_Index(face.get(), ch) : MISSING_GLYPH;
  // With the font's own hints, as the game's library loads it.
  if (FT_Load_Glyph(face.get(), index, FT_LOAD_DEFAULT) != 0)
    return {};
  auto *const slot = face->glyph;
  const bool is_outline = slot->format == FT_GLYPH_FORMAT_OUTLINE;
  if (is_outline)
    FT_Outline_Embolden(&slot->outline, BOLD);
  if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0)
    return {};
  if (!is_outline && FT_GlyphSlot_Own_Bitmap(slot) == 0)
    FT_Bitmap_Embolden(library.get(), &slot->bitmap, BOLD, BOLD);
  const FT_Bitmap &bitmap = slot->bitmap;
  if (!isReadable(bitmap))
    return {};
  Glyph glyph;
  glyph.left = slot->bitmap_left;
  glyph.top = CHARACTER_SIZE - slot->bitmap_top; // the base line is the cell's end
  glyph.width = static_cast<int>(bitmap.width);
  glyph.height = static_cast<int>(bitmap.rows);
  for (int y = 0; y < glyph.height; y++)
    for (int x = 0; x < glyph.width; x++)
      glyph.coverage.push_back(coverageAt(bitmap, x, y));
  return glyph;
}
