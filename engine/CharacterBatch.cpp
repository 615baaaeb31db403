#include "CharacterBatch.h"

#include "Clock.h"
#include "LogManager.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <exception>
#include <string>

namespace gw {

namespace {

/// The picture is drawn in tiles of so many pixels on a side. Smaller ones leave more of
/// it out, but take longer to find and to draw.
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

/// Nothing is shown for control characters, as the library's text does it from version
/// 3.1 on; its font has a box for characters that it lacks.
bool isControl(char ch) {
  const auto code = static_cast<unsigned char>(ch);
  return code < 32 || code == 127;
}

/// What `count` characters of `cell` pixels side by side have behind them, the first of
/// them at `position`.
sf::FloatRect backgroundArea(sf::Vector2f position, sf::Vector2f cell,
                             std::size_t count) {
  return {position + sf::Vector2f(-cell.x / 10, cell.y / 5),
          {static_cast<float>(count) * cell.x, cell.y}};
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

std::uint8_t alphaAt(const sf::Image &image, sf::Vector2i pixel) {
  return image.getPixel(sf::Vector2u(pixel)).a;
}

/// The smallest area within `area` outside of which all of it is transparent.
sf::IntRect findInk(const sf::Image &image, sf::IntRect area) {
  const sf::Vector2i area_end = area.position + area.size;
  sf::Vector2i first = area_end;
  sf::Vector2i end = area.position;
  for (int y = area.position.y; y < area_end.y; y++)
    for (int x = area.position.x; x < area_end.x; x++)
      if (alphaAt(image, {x, y}) != 0) {
        first = {std::min(first.x, x), std::min(first.y, y)};
        end = {std::max(end.x, x + 1), std::max(end.y, y + 1)};
      }
  return end.x > first.x ? sf::IntRect(first, end - first) : sf::IntRect();
}

std::uint32_t toPixel(sf::Color color) {
  const std::uint8_t bytes[] = {color.r, color.g, color.b, color.a};
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, bytes, sizeof pixel);
  return pixel;
}

/// Of two bytes, each in 16 bits of its own: byte * factor / 255, rounded as the
/// graphics card does it.
std::uint32_t scale(std::uint32_t bytes, std::uint32_t factor) {
  constexpr std::uint32_t BYTES = 0x00ff00ff;
  const std::uint32_t products = bytes * factor + 0x00800080;
  return ((products + ((products >> 8) & BYTES)) >> 8) & BYTES;
}

/// A pixel over another one, both opaque but for `opacity`.
std::uint32_t blend(std::uint32_t below, std::uint32_t above, std::uint32_t opacity) {
  constexpr std::uint32_t BYTES = 0x00ff00ff;
  const std::uint32_t even =
      scale(above & BYTES, opacity) + scale(below & BYTES, 255 - opacity);
  const std::uint32_t odd =
      scale(above >> 8 & BYTES, opacity) + scale(below >> 8 & BYTES, 255 - opacity);
  return even | odd << 8;
}

} // namespace

void CharacterBatch::clear(sf::Vector2i size, sf::Color color) {
  vertices.clear();
  last_glyph.reset();
  is_shared = has_no_texture;
  if (size == picture_size && color == clear_color) {
    forEachPaintedRun([this](sf::IntRect run) { fill(run, clear_color); });
  } else {
    picture_size = size;
    clear_color = color;
    stride = picture_size.x + STRIDE_PADDING;
    picture.assign(static_cast<std::size_t>(stride * picture_size.y), toPixel(color));
  }
  painted.reset(picture_size);
  covered.reset(picture_size);
}

/// Blanks on pixels that nothing has touched paint nothing. They are looked at together:
/// the border alone is a screen full of them, and took a third of the time of collecting
/// a step of play.
void CharacterBatch::addRow(sf::Vector2f origin, int first, std::string_view row,
                            sf::Vector2f cell, sf::Color color, sf::Color background,
                            const sf::Font *p_font) {
  const auto positionOf = [&](std::size_t i) {
    const auto column = static_cast<float>(first + static_cast<int>(i));
    return origin + sf::Vector2f(column * cell.x, 0);
  };
  for (std::size_t i = 0; i < row.size(); i++) {
    const std::size_t end = std::min(row.find_first_not_of(' ', i), row.size());
    if (end > i + 1 && background == clear_color &&
        areBlanksUnseen(backgroundArea(positionOf(i), cell, end - i))) {
      i = end - 1;
      continue;
    }
    add(positionOf(i), cell, row[i], color, background, p_font);
  }
}

/// @param area of blanks with the clear colour behind them
bool CharacterBatch::areBlanksUnseen(sf::FloatRect area) {
  if (!isVisible(area))
    return true;
  addLastGlyph(area);
  return isUntouched(touchedPixels(area));
}

void CharacterBatch::add(sf::Vector2f position, sf::Vector2f cell, char ch,
                         sf::Color color, sf::Color background, const sf::Font *p_font) {
  const sf::FloatRect area = backgroundArea(position, cell, 1);
  // A glyph may reach a little over its cell, but never by a whole one.
  if (!isVisible({area.position - cell, 3.f * cell}))
    return;
  addLastGlyph(area);
  Glyph *p_glyph = getGlyph(ch, characterSize(cell), p_font);
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
  if (!is_shared)
    drawPicture(target);
  if (vertices.empty())
    return;
  sf::RenderStates states;
  // Fetched only now: it grows with every new glyph.
  states.texture = p_glyph_font ? &p_glyph_font->getTexture(glyph_size) : nullptr;
  target.draw(vertices.data(), vertices.size(), sf::PrimitiveType::Triangles, states);
  vertices.clear();
}

void CharacterBatch::release() {
  *this = CharacterBatch();
}

/// Draws the tiles of the picture that have something on them.
void CharacterBatch::drawPicture(sf::RenderTarget &target) {
  picture_vertices.clear();
  int first_row = picture_size.y;
  int end_row = 0;
  forEachPaintedRun([this, &first_row, &end_row](sf::IntRect run) {
    first_row = std::min(first_row, run.position.y);
    end_row = run.position.y + run.size.y;
    addQuad(picture_vertices, sf::FloatRect(run), sf::FloatRect(run), sf::Color::White);
  });
  if (picture_vertices.empty())
    return;
  if (!makeTexture())
    return;
  texture->setSmooth(sf::Vector2i(target.getSize()) != picture_size);
  // One row more on both sides, which a smooth texture looks at as well.
  first_row = std::max(first_row - 1, 0);
  end_row = std::min(end_row + 1, picture_size.y);
  const auto *p_rows = reinterpret_cast<const std::uint8_t *>(
      &picture[static_cast<std::size_t>(first_row * stride)]);
  texture->update(p_rows, sf::Vector2u(sf::Vector2i(stride, end_row - first_row)),
                  sf::Vector2u(sf::Vector2i(0, first_row)));
  sf::RenderStates states(sf::BlendNone);
  states.texture = &*texture;
  target.draw(picture_vertices.data(), picture_vertices.size(),
              sf::PrimitiveType::Triangles, states);
}

/// @return false when the graphics card has no room: this frame lacks what is in the
/// picture, and all others are drawn without one
bool CharacterBatch::makeTexture() {
  if (texture)
    return true;
  texture.emplace();
  if (texture->resize(sf::Vector2u(sf::Vector2i(stride, picture_size.y))))
    return true;
  texture.reset();
  has_no_texture = true;
  LogManager::getInstance().writeLog(
      WARNING, "gw::CharacterBatch::makeTexture() - No texture can be made for the "
               "picture. Drawing will be slow.");
  return false;
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

/// Paints a character into the picture.
/// @param p_glyph null for a blank
void CharacterBatch::paint(sf::IntRect cell, sf::Color background, sf::Vector2i position,
                           Glyph *p_glyph, sf::Color color) {
  if (p_glyph)
    copy(getStamp(*p_glyph, {cell.position - position, cell.size}, color, background),
         cell);
  else if (background != clear_color || painted.intersects(cell))
    fill(clip(cell, picture_size), background);
  else
    return;
  if (background == clear_color)
    painted.remove(cell);
  else
    painted.insert(cell);
  if (p_glyph)
    painted.insert({position + p_glyph->area.position, p_glyph->area.size});
}

/// The character of that glyph and these colours.
/// @param cell relative to the character's position
const CharacterBatch::Stamp &CharacterBatch::getStamp(Glyph &glyph, sf::IntRect cell,
                                                      sf::Color color,
                                                      sf::Color background) {
  for (const Stamp &stamp : glyph.stamps)
    if (stamp.color == color && stamp.background == background)
      return stamp;
  Stamp stamp{color, background, {}, {}};
  const std::uint32_t below = toPixel(background);
  stamp.pixels.assign(static_cast<std::size_t>(cell.size.x * cell.size.y), below);
  for (int y = 0; y < glyph.area.size.y; y++)
    for (int x = 0; x < glyph.area.size.x; x++) {
      const std::uint8_t opacity =
          glyph.opacity[static_cast<std::size_t>(y * glyph.area.size.x + x)];
      const sf::Vector2i place = glyph.area.position + sf::Vector2i(x, y) - cell.position;
      if (sf::IntRect({0, 0}, cell.size).contains(place))
        stamp.pixels[static_cast<std::size_t>(place.y * cell.size.x + place.x)] =
            blend(below, toPixel(color), opacity);
      else if (opacity > 0)
        stamp.overhang.push_back({place, opacity});
    }
  return glyph.stamps.emplace_back(std::move(stamp));
}

void CharacterBatch::copy(const Stamp &stamp, sf::IntRect cell) {
  const sf::IntRect seen = clip(cell, picture_size);
  const sf::Vector2i skipped = seen.position - cell.position;
  for (int y = 0; y < seen.size.y; y++)
    std::copy_n(stamp.pixels.begin() + (skipped.y + y) * cell.size.x + skipped.x,
                seen.size.x, pixelAt(seen.position.x, seen.position.y + y));
  for (const Stamp::Overhang &overhang : stamp.overhang) {
    const sf::Vector2i place = cell.position + overhang.place;
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
  addQuad(vertices, area, WHITE_TEXEL, color);
  covered.insert(touched);
}

void CharacterBatch::addGlyph(sf::Vector2f position, const Glyph &glyph,
                              sf::Color color) {
  // Like the library's text: one texel more on every side, for smooth edges
  // between pixels, and the base line one character size below the top.
  const sf::Vector2f padding(1, 1);
  const sf::Vector2f base_line(0, static_cast<float>(glyph_size));
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
}

void CharacterBatch::addQuad(std::vector<sf::Vertex> &triangles, sf::FloatRect area,
                             sf::FloatRect texture_area, sf::Color color) {
  const sf::Vector2f a = area.position;
  const sf::Vector2f b = area.position + area.size;
  const sf::Vector2f s = texture_area.position;
  const sf::Vector2f t = texture_area.position + texture_area.size;
  const sf::Vertex top_left{a, color, s};
  const sf::Vertex top_right{{b.x, a.y}, color, {t.x, s.y}};
  const sf::Vertex bottom_left{{a.x, b.y}, color, {s.x, t.y}};
  const sf::Vertex bottom_right{b, color, t};
  triangles.insert(triangles.end(), {top_left, top_right, bottom_left, bottom_left,
                                     top_right, bottom_right});
}

/// Whether the pixels of the target still have the clear colour.
bool CharacterBatch::isUntouched(sf::IntRect area) const {
  return !is_shared && !painted.intersects(area) && !covered.intersects(area);
}

/// False also for a position that is not a number. What a shared target shows is for
/// others to choose; farther out than this, pixels cannot be told apart by their floats.
bool CharacterBatch::isVisible(sf::FloatRect area) const {
  constexpr float FAR = 1 << 23;
  const sf::Vector2f first = is_shared ? sf::Vector2f(-FAR, -FAR) : sf::Vector2f();
  const sf::Vector2f last =
      is_shared ? sf::Vector2f(FAR, FAR) : sf::Vector2f(picture_size);
  const sf::Vector2f end = area.position + area.size;
  return area.position.x < last.x && end.x > first.x && area.position.y < last.y &&
         end.y > first.y;
}

/// @return null for a character that shows nothing
CharacterBatch::Glyph *CharacterBatch::getGlyph(char ch, unsigned size,
                                                const sf::Font *p_font) {
  if (!p_font || isControl(ch))
    return nullptr;
  if (p_font != p_glyph_font || size != glyph_size) {
    p_glyph_font = p_font;
    glyph_size = size;
    glyphs.fill(std::nullopt);
    is_font_damaged = false;
    glyph_making_time = 0;
    loadGlyphs(*p_font);
  }
  std::optional<Glyph> &glyph = glyphs[static_cast<unsigned char>(ch)];
  if (!glyph)
    glyph = makeGlyph(ch, *p_font)
                ? loadGlyph(ch, *p_font, p_font->getTexture(glyph_size).copyToImage())
                : Glyph();
  return glyph->opacity.empty() ? nullptr : &*glyph;
}

/// Loads all printable characters at once: looking at the font's texture is slow.
void CharacterBatch::loadGlyphs(const sf::Font &font) {
  constexpr char FIRST = ' ';
  constexpr char LAST = '~';
  std::string made;
  for (char ch = FIRST; ch <= LAST; ch++)
    if (makeGlyph(ch, font))
      made += ch;
    else
      glyphs[static_cast<unsigned char>(ch)] = Glyph();
  if (made.empty())
    return;
  const sf::Image font_texture = font.getTexture(glyph_size).copyToImage();
  for (const char ch : made)
    glyphs[static_cast<unsigned char>(ch)] = loadGlyph(ch, font, font_texture);
}

/// Has the font make a glyph. One that is damaged may want more memory than there is, may
/// take seconds for each glyph, or make some that fill the screen.
/// @return false when the character is to be left out
bool CharacterBatch::makeGlyph(char ch, const sf::Font &font) {
  constexpr long long PATIENCE = 2000000; // microseconds for all glyphs; a good font
                                          // takes a hundredth of that
  constexpr float LARGEST = 4;            // times the character size
  if (is_font_damaged)
    return false;
  const Clock clock;
  sf::Vector2f size;
  try {
    size = font.getGlyph(sf::String(ch)[0], glyph_size, true).bounds.size;
  } catch (const std::exception &) {
    is_font_damaged = true;
  }
  glyph_making_time += clock.split();
  is_font_damaged = is_font_damaged || glyph_making_time > PATIENCE ||
                    std::max(size.x, size.y) > LARGEST * static_cast<float>(glyph_size);
  if (is_font_damaged)
    LogManager::getInstance().writeLog(WARNING,
                                       "gw::CharacterBatch::makeGlyph() - The font is "
                                       "damaged. Characters are left out.");
  return !is_font_damaged;
}

CharacterBatch::Glyph CharacterBatch::loadGlyph(char ch, const sf::Font &font,
                                                const sf::Image &font_texture) const {
  Glyph loaded;
  loaded.glyph = font.getGlyph(sf::String(ch)[0], glyph_size, true);
  const sf::IntRect texels = loaded.glyph.textureRect;
  const sf::Vector2i base_line(0, static_cast<int>(glyph_size));
  const sf::Vector2i top_left = sf::Vector2i(loaded.glyph.bounds.position) + base_line;
  const sf::IntRect ink = findInk(font_texture, texels);
  loaded.area = {top_left + ink.position - texels.position, ink.size};
  for (int y = 0; y < ink.size.y; y++)
    for (int x = 0; x < ink.size.x; x++)
      loaded.opacity.push_back(alphaAt(font_texture, ink.position + sf::Vector2i(x, y)));
  return loaded;
}

} // namespace gw
