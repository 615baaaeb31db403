#include "CharacterBatch.h"

#include <algorithm>
#include <cmath>

namespace gw {

namespace {

constexpr int WORD_BITS = 64;

/// The font's texture is white around (1, 1), which lets backgrounds and glyphs
/// share one draw call.
const sf::FloatRect WHITE_TEXEL({1, 1}, {0, 0});

/// Twice the shorter side: a glyph of a fixed-width font is half as wide as high.
unsigned characterSize(sf::Vector2f cell) {
  return static_cast<unsigned>((cell.y > cell.x ? cell.x : cell.y) * 2);
}

/// The library's text shows nothing for control characters, where its font has a
/// box for characters that it lacks.
bool isControl(char ch) {
  const auto code = static_cast<unsigned char>(ch);
  return code < 32 || code == 127;
}

} // namespace

void CharacterBatch::clear(sf::Vector2u size, sf::Color color) {
  vertices.clear();
  target_size = sf::Vector2i(size);
  clear_color = color;
  words_per_row = (target_size.x + WORD_BITS - 1) / WORD_BITS;
  painted.assign(static_cast<std::size_t>(words_per_row * target_size.y), 0);
}

void CharacterBatch::add(sf::Vector2f position, sf::Vector2f cell, char ch,
                         sf::Color color, sf::Color background, const sf::Font *p_font) {
  const sf::Vector2f offset(-cell.x / 10, cell.y / 5);
  addBackground(sf::FloatRect(position + offset, cell), background);
  if (p_font && !isControl(ch)) {
    font = p_font;
    addGlyph(position, ch, characterSize(cell), color);
  }
}

void CharacterBatch::draw(sf::RenderTarget &target) {
  if (vertices.empty())
    return;
  sf::RenderStates states;
  // Fetched only now: it grows with every new glyph.
  states.texture = font ? &font->getTexture(glyph_size) : nullptr;
  target.draw(vertices.data(), vertices.size(), sf::PrimitiveType::Triangles, states);
  vertices.clear();
}

void CharacterBatch::release() {
  *this = CharacterBatch();
}

void CharacterBatch::addBackground(sf::FloatRect area, sf::Color color) {
  if (!isVisible(area))
    return;
  if (color != clear_color) {
    addQuad(area, WHITE_TEXEL, color);
    setPainted(area);
  } else if (isPainted(area)) {
    addQuad(area, WHITE_TEXEL, color);
    setClean(area);
  }
}

void CharacterBatch::addGlyph(sf::Vector2f position, char ch, unsigned size,
                              sf::Color color) {
  const sf::Glyph &glyph = getGlyph(ch, size);
  if (glyph.bounds.size.x <= 0 || glyph.bounds.size.y <= 0)
    return;
  // Like the library's text: one texel more on every side, for smooth edges
  // between pixels, and the base line `size` below the top.
  const sf::Vector2f padding(1, 1);
  const sf::Vector2f base_line(0, static_cast<float>(size));
  const sf::FloatRect area(position + base_line + glyph.bounds.position - padding,
                           glyph.bounds.size + 2.f * padding);
  if (!isVisible(area))
    return;
  const sf::FloatRect texels(glyph.textureRect);
  addQuad(area, sf::FloatRect(texels.position - padding, texels.size + 2.f * padding),
          color);
  setPainted(area);
}

void CharacterBatch::addQuad(sf::FloatRect area, sf::FloatRect texture_area,
                             sf::Color color) {
  const sf::Vector2f a = area.position;
  const sf::Vector2f b = area.position + area.size;
  const sf::Vector2f s = texture_area.position;
  const sf::Vector2f t = texture_area.position + texture_area.size;
  const sf::Vertex top_left{a, color, s};
  const sf::Vertex top_right{{b.x, a.y}, color, {t.x, s.y}};
  const sf::Vertex bottom_left{{a.x, b.y}, color, {s.x, t.y}};
  const sf::Vertex bottom_right{b, color, t};
  vertices.insert(vertices.end(), {top_left, top_right, bottom_left, bottom_left,
                                   top_right, bottom_right});
}

const sf::Glyph &CharacterBatch::getGlyph(char ch, unsigned size) {
  if (size != glyph_size) {
    glyphs.fill(std::nullopt);
    glyph_size = size;
  }
  std::optional<sf::Glyph> &glyph = glyphs[static_cast<unsigned char>(ch)];
  if (!glyph)
    glyph = font->getGlyph(sf::String(ch)[0], size, true);
  return *glyph;
}

/// False also for a position that is not a number.
bool CharacterBatch::isVisible(sf::FloatRect area) const {
  const sf::Vector2f end = area.position + area.size;
  return area.position.x < static_cast<float>(target_size.x) && end.x > 0 &&
         area.position.y < static_cast<float>(target_size.y) && end.y > 0;
}

/// Whether any pixel that the area touches may differ from the clear colour.
bool CharacterBatch::isPainted(sf::FloatRect area) {
  const sf::Vector2f end = area.position + area.size;
  bool found = false;
  forEachWord(
      static_cast<int>(std::floor(area.position.x)),
      static_cast<int>(std::floor(area.position.y)), static_cast<int>(std::ceil(end.x)),
      static_cast<int>(std::ceil(end.y)),
      [&](std::uint64_t &word, std::uint64_t mask) { found |= (word & mask) != 0; });
  return found;
}

/// Notes every pixel that the area touches.
void CharacterBatch::setPainted(sf::FloatRect area) {
  const sf::Vector2f end = area.position + area.size;
  forEachWord(static_cast<int>(std::floor(area.position.x)),
              static_cast<int>(std::floor(area.position.y)),
              static_cast<int>(std::ceil(end.x)), static_cast<int>(std::ceil(end.y)),
              [](std::uint64_t &word, std::uint64_t mask) { word |= mask; });
}

/// Forgets the pixels that the area covers entirely.
void CharacterBatch::setClean(sf::FloatRect area) {
  const sf::Vector2f end = area.position + area.size;
  forEachWord(static_cast<int>(std::ceil(area.position.x)),
              static_cast<int>(std::ceil(area.position.y)),
              static_cast<int>(std::floor(end.x)), static_cast<int>(std::floor(end.y)),
              [](std::uint64_t &word, std::uint64_t mask) { word &= ~mask; });
}

/// Calls `visit` with every word that holds bits of the pixels from (left, top)
/// up to but not including (right, bottom), and with the mask of these bits.
template <class Visit>
void CharacterBatch::forEachWord(int left, int top, int right, int bottom, Visit visit) {
  left = std::max(left, 0);
  top = std::max(top, 0);
  right = std::min(right, target_size.x);
  bottom = std::min(bottom, target_size.y);
  if (left >= right)
    return;
  const int first = left / WORD_BITS;
  const int last = (right - 1) / WORD_BITS;
  const std::uint64_t from_left = ~std::uint64_t{0} << (left % WORD_BITS);
  const std::uint64_t to_right =
      ~std::uint64_t{0} >> (WORD_BITS - 1 - (right - 1) % WORD_BITS);
  for (int y = top; y < bottom; y++)
    for (int i = first; i <= last; i++) {
      std::uint64_t mask = ~std::uint64_t{0};
      if (i == first)
        mask &= from_left;
      if (i == last)
        mask &= to_right;
      visit(painted[static_cast<std::size_t>(y * words_per_row + i)], mask);
    }
}

} // namespace gw
