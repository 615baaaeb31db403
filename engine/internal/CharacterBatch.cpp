#include "internal/CharacterBatch.h"

#include "LogManager.h"
#include "internal/Pixel.h"
#include "internal/quad.h"

#include <algorithm>
#include <cmath>

namespace gw {

namespace {

/// The picture is cleaned and drawn in tiles of so many pixels on a side. Smaller ones
/// leave more of it out, but take longer to find and to draw.
constexpr int TILE = 16;

/// Pixels at the end of each row of the picture that are never seen. Without them, the
/// rows of a character would be a power of two apart, which keeps all but a few of them
/// out of the processor's cache: collecting a full screen took a third longer.
constexpr int STRIDE_PADDING = 16;

/// The font's texture is white around (1, 1), which lets backgrounds and glyphs
/// share one draw call.
const sf::FloatRect WHITE_TEXEL({1, 1}, {0, 0});

/// Twice the shorter side: a glyph of a fixed-width font is half as wide as high.
unsigned characterSize(sf::Vector2f cell) {
  return static_cast<unsigned>((cell.y > cell.x ? cell.x : cell.y) * 2);
}

bool isWhole(sf::Vector2f position) {
  return std::floor(position.x) == position.x && std::floor(position.y) == position.y;
}

/// The pixels whose centre is in the area: those that the graphics card fills. `slack`
/// makes the area larger on all sides.
sf::IntRect filledPixels(sf::FloatRect area, float slack = 0) {
  const sf::Vector2f end = area.position + area.size;
  const sf::Vector2i first(static_cast<int>(std::ceil(area.position.x - slack - 0.5f)),
                           static_cast<int>(std::ceil(area.position.y - slack - 0.5f)));
  const sf::Vector2i last(static_cast<int>(std::ceil(end.x + slack - 0.5f)),
                          static_cast<int>(std::ceil(end.y + slack - 0.5f)));
  return {first, last - first};
}

/// More than the graphics card may round places by, in pixels.
constexpr float ROUNDING = 1.f / 64;

/// Every pixel that triangles of that area may fill, however the graphics card rounds.
sf::IntRect touchedPixels(sf::FloatRect area) {
  return filledPixels(area, ROUNDING);
}

/// The part of the area inside a picture of that size; may be empty.
sf::IntRect clip(sf::IntRect area, sf::Vector2i size) {
  return area.findIntersection(sf::IntRect({0, 0}, size)).value_or(sf::IntRect());
}

} // namespace

CharacterBatch::CharacterBatch(sf::Vector2i init_picture_size, sf::Vector2f init_cell)
    : picture_size(init_picture_size), cell(init_cell),
      stride(init_picture_size.x + STRIDE_PADDING), texture(picture_size, stride) {
}

void CharacterBatch::setFont(const sf::Font &font) {
  glyphs.emplace(font, characterSize(cell));
}

void CharacterBatch::clear(sf::Color color) {
  vertices.clear();
  last_glyph.reset();
  last_background.reset();
  if (!picture.empty() && color == clear_color)
    forEachPaintedRun([this](sf::IntRect run) { fill(run, clear_color); });
  else
    picture.assign(static_cast<std::size_t>(stride * picture_size.y), toPixel(color));
  clear_color = color;
  painted.reset(picture_size);
  covered.reset(picture_size);
  is_shared = false;
  is_begun = false;
  visible_first = {};
  visible_end = sf::Vector2f(picture_size);
  if (has_no_texture)
    shareTarget();
}

void CharacterBatch::shareTarget() {
  // Farther out than this, pixels cannot be told apart by their floats.
  constexpr float FAR = 1 << 23;
  is_shared = true;
  visible_first = {-FAR, -FAR};
  visible_end = {FAR, FAR};
}

/// Blanks on pixels that nothing has touched paint nothing. They are looked at together:
/// the border alone is a screen full of them.
void CharacterBatch::addRow(sf::Vector2f origin, int first, std::string_view row,
                            sf::Color color, sf::Color background) {
  last_background.reset();
  std::size_t i = 0;
  while (i < row.size()) {
    const auto column = static_cast<float>(first + static_cast<int>(i));
    const sf::Vector2f position = origin + sf::Vector2f(column * cell.x, 0);
    const std::size_t end = std::min(row.find_first_not_of(' ', i), row.size());
    if (end > i + 1 && background == clear_color) {
      const sf::FloatRect blanks = backgroundArea(position, end - i);
      const bool is_visible = isVisible(blanks);
      if (is_visible)
        addLastGlyph(blanks);
      if (!is_visible || isUntouched(touchedPixels(blanks))) {
        i = end;
        continue;
      }
    }
    add(position, row[i], color, background);
    i++;
  }
}

void CharacterBatch::add(sf::Vector2f position, char ch, sf::Color color,
                         sf::Color background) {
  const sf::FloatRect area = backgroundArea(position, 1);
  // A glyph may reach a little over its cell, but never by a whole one.
  if (!isVisible({area.position - cell, 3.f * cell}))
    return;
  addLastGlyph(area);
  GlyphCache::Glyph *p_glyph = glyphs ? glyphs->find(ch) : nullptr;
  if (!is_shared && isWhole(position)) {
    const sf::IntRect background_area = filledPixels(area);
    const sf::Vector2i pixel(position);
    const bool is_on_top =
        !covered.intersects(background_area) &&
        !(p_glyph &&
          covered.intersects({pixel + p_glyph->area.position, p_glyph->area.size}));
    if (is_on_top) {
      paint(background_area, background, pixel, p_glyph, color);
      return;
    }
  }
  addBackground(area, background);
  if (p_glyph)
    addGlyph(position, *p_glyph, color);
}

void CharacterBatch::draw(sf::RenderTarget &target) {
  addLastGlyph({});
  if (!is_begun)
    drawPicture(target);
  is_begun = true;
  if (vertices.empty())
    return;
  sf::RenderStates states;
  states.texture = glyphs ? &glyphs->getTexture() : nullptr;
  drawQuads(target, vertices, states);
  vertices.clear();
  last_background.reset();
}

/// Covers the target with what is in the picture, and clears the rest.
void CharacterBatch::drawPicture(sf::RenderTarget &target) {
  areas.clear();
  if (!has_no_texture)
    forEachPaintedRun([this](sf::IntRect run) { areas.push_back(run); });
  if (texture.draw(target, picture.data(), clear_color, areas))
    return;
  has_no_texture = true; // this frame lacks the picture; all others do without one
  LogManager::getInstance().writeLog(
      WARNING, "gw::CharacterBatch::drawPicture() - No texture can be made for the "
               "picture. Drawing will be slow.");
}

template <class Visit> void CharacterBatch::forEachPaintedRun(Visit visit) const {
  for (int top = 0; top < picture_size.y; top += TILE) {
    sf::IntRect run({0, top}, {0, TILE});
    for (int x = 0; x <= picture_size.x; x += TILE) {
      if (x < picture_size.x && painted.intersects({{x, top}, {TILE, TILE}})) {
        run.size.x += TILE;
        continue;
      }
      if (run.size.x > 0)
        visit(clip(run, picture_size));
      run = {{x + TILE, top}, {0, TILE}};
    }
  }
}

void CharacterBatch::fill(sf::IntRect area, sf::Color color) {
  for (int y = area.position.y; y < area.position.y + area.size.y; y++)
    std::fill_n(pixelAt(area.position.x, y), area.size.x, toPixel(color));
}

/// Paints a character into the picture. @param area of its background
/// @param position of the character @param p_glyph null for a blank
void CharacterBatch::paint(sf::IntRect area, sf::Color background, sf::Vector2i position,
                           GlyphCache::Glyph *p_glyph, sf::Color color) {
  if (p_glyph)
    copy(glyphs->getStamp(*p_glyph, {area.position - position, area.size}, color,
                          background),
         area);
  else if (background != clear_color || painted.intersects(area))
    fill(clip(area, picture_size), background);
  else
    return;
  if (background == clear_color)
    painted.remove(area);
  else
    painted.insert(area);
  if (p_glyph)
    painted.insert({position + p_glyph->area.position, p_glyph->area.size});
}

void CharacterBatch::copy(const GlyphCache::Stamp &stamp, sf::IntRect area) {
  const sf::IntRect seen = clip(area, picture_size);
  const sf::Vector2i skipped = seen.position - area.position;
  for (int y = 0; y < seen.size.y; y++)
    std::copy_n(stamp.pixels.begin() + (skipped.y + y) * area.size.x + skipped.x,
                seen.size.x, pixelAt(seen.position.x, seen.position.y + y));
  for (const GlyphCache::Stamp::Overhang &overhang : stamp.overhang) {
    const sf::Vector2i place = area.position + overhang.place;
    if (!sf::IntRect({0, 0}, picture_size).contains(place))
      continue;
    std::uint32_t &pixel = *pixelAt(place.x, place.y);
    pixel = blend(pixel, toPixel(stamp.color), overhang.opacity);
  }
}

void CharacterBatch::addBackground(sf::FloatRect area, sf::Color color) {
  if (!isVisible(area))
    return;
  const sf::IntRect touched = touchedPixels(area);
  if (color == clear_color && isUntouched(touched))
    return;
  covered.insert(touched);
  if (joinBackground(area, color))
    return;
  last_background = {vertices.size(), area, color, {}};
  addQuad(vertices, area, WHITE_TEXEL, color);
}

/// Makes the last background wider instead of adding one beside it: it may be painted
/// before the glyph between the two, which does not reach into the new one.
bool CharacterBatch::joinBackground(sf::FloatRect area, sf::Color color) {
  if (!last_background || last_background->color != color ||
      last_background->glyph.findIntersection(touchedPixels(area)))
    return false;
  sf::FloatRect &joined = last_background->area;
  if (joined.position.y != area.position.y ||
      std::fabs(joined.position.x + joined.size.x - area.position.x) > ROUNDING)
    return false;
  joined.size.x = area.position.x + area.size.x - joined.position.x;
  for (const std::size_t right : RIGHT_VERTICES)
    vertices[last_background->first_vertex + right].position.x =
        joined.position.x + joined.size.x;
  return true;
}

void CharacterBatch::addGlyph(sf::Vector2f position, const GlyphCache::Glyph &glyph,
                              sf::Color color) {
  // Like the library's text, the base line is one character size below the top. Between
  // pixels, ink reaches half a texel farther on every side. The library draws a whole
  // one, whose outer half stays empty.
  const sf::Vector2f padding(0.5f, 0.5f);
  const sf::Vector2f base_line(0, static_cast<float>(glyphs->getSize()));
  const sf::FloatRect area(position + base_line + glyph.glyph.bounds.position - padding,
                           glyph.glyph.bounds.size + 2.f * padding);
  if (!isVisible(area))
    return;
  const sf::FloatRect texels(glyph.glyph.textureRect);
  // Between pixels, ink spreads to all pixels whose centre is less than one away.
  const sf::FloatRect ink(glyph.area);
  const sf::Vector2f spread(0.5f, 0.5f);
  last_glyph = {
      area,
      {texels.position - padding, texels.size + 2.f * padding},
      color,
      touchedPixels({position + ink.position - spread, ink.size + 2.f * spread})};
}

/// Adds the triangles of the last glyph. Bold glyphs reach into the cell to their right,
/// whose background hides that at once: cut off, it cannot make that character one on top
/// of triangles, too, and so on to the end of the line. A step of play in which insects
/// fly under a panel needs a third fewer triangles.
void CharacterBatch::addLastGlyph(sf::FloatRect next_background) {
  if (!last_glyph)
    return;
  GlyphQuad quad = *last_glyph;
  last_glyph.reset();
  const sf::Vector2i end = quad.touched.position + quad.touched.size;
  const sf::IntRect hidden = filledPixels(next_background, -ROUNDING);
  const sf::Vector2i hidden_end = hidden.position + hidden.size;
  const bool is_cut = quad.touched.position.x < hidden.position.x &&
                      end.x > hidden.position.x && end.x <= hidden_end.x &&
                      quad.touched.position.y >= hidden.position.y &&
                      end.y <= hidden_end.y;
  if (is_cut) {
    quad.touched.size.x = hidden.position.x - quad.touched.position.x;
    quad.area.size.x = next_background.position.x - quad.area.position.x;
    quad.texels.size.x = quad.area.size.x; // a texel for each pixel
  }
  addQuad(vertices, quad.area, quad.texels, quad.color);
  covered.insert(quad.touched);
  if (last_background)
    last_background->glyph = quad.touched;
}

/// Whether the pixels of the target still have the clear colour.
bool CharacterBatch::isUntouched(sf::IntRect area) const {
  return !is_shared && !painted.intersects(area) && !covered.intersects(area);
}

/// Whether any of the area can be seen. False for a place that is no number.
bool CharacterBatch::isVisible(sf::FloatRect area) const {
  const sf::Vector2f end = area.position + area.size;
  return area.position.x < visible_end.x && end.x > visible_first.x &&
         area.position.y < visible_end.y && end.y > visible_first.y;
}

/// What `count` characters side by side have behind them, the first one at `position`.
sf::FloatRect CharacterBatch::backgroundArea(sf::Vector2f position,
                                             std::size_t count) const {
  return {position + sf::Vector2f(-cell.x / 10, cell.y / 5),
          {static_cast<float>(count) * cell.x, cell.y}};
}

} // namespace gw
