#include "internal/GlyphCache.h"

#include "Clock.h"
#include "LogManager.h"
#include "internal/Pixel.h"

#include <SFML/System/String.hpp>

#include <algorithm>
#include <exception>
#include <string>
#include <utility>

namespace gw {

namespace {

/// Nothing is shown for control characters, as the library's text does it from version
/// 3.1 on; its font has a box for characters that it lacks.
bool isControl(char ch) {
  const auto code = static_cast<unsigned char>(ch);
  return code < 32 || code == 127;
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

} // namespace

GlyphCache::GlyphCache(const sf::Font &init_font, unsigned init_size)
    : font(init_font), size(init_size) {
  loadAll();
}

GlyphCache::Glyph *GlyphCache::find(char ch) {
  if (isControl(ch))
    return nullptr;
  std::optional<Glyph> &glyph = glyphs[static_cast<unsigned char>(ch)];
  if (!glyph)
    glyph = make(ch) ? load(ch, getTexture().copyToImage()) : Glyph();
  return glyph->opacity.empty() ? nullptr : &*glyph;
}

const GlyphCache::Stamp &GlyphCache::getStamp(Glyph &glyph, sf::IntRect cell,
                                              sf::Color color,
                                              sf::Color background) const {
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

/// All printable characters at once: looking at the font's texture is slow.
void GlyphCache::loadAll() {
  constexpr char FIRST = ' ';
  constexpr char LAST = '~';
  std::string made;
  for (char ch = FIRST; ch <= LAST; ch++)
    if (make(ch))
      made += ch;
    else
      glyphs[static_cast<unsigned char>(ch)] = Glyph();
  if (made.empty())
    return;
  const sf::Image texture = getTexture().copyToImage();
  for (const char ch : made)
    glyphs[static_cast<unsigned char>(ch)] = load(ch, texture);
}

/// Has the font make a glyph. One that is damaged may want more memory than there is, may
/// take seconds for each glyph, or make some that fill the screen.
/// @return false when the character is to be left out
bool GlyphCache::make(char ch) {
  constexpr long long PATIENCE = 2000000; // microseconds for all glyphs; a good font
                                          // takes a hundredth of that
  constexpr float LARGEST = 4;            // times the character size
  if (is_font_damaged)
    return false;
  const Clock clock;
  sf::Vector2f extent;
  try {
    extent = font.getGlyph(sf::String(ch)[0], size, true).bounds.size;
  } catch (const std::exception &) {
    is_font_damaged = true;
  }
  making_time += clock.split();
  is_font_damaged = is_font_damaged || making_time > PATIENCE ||
                    std::max(extent.x, extent.y) > LARGEST * static_cast<float>(size);
  if (is_font_damaged)
    LogManager::getInstance().writeLog(WARNING,
                                       "gw::GlyphCache::make() - The font is damaged. "
                                       "Characters are left out.");
  return !is_font_damaged;
}

/// A glyph that the font has made. @param texture the font's, with that glyph
GlyphCache::Glyph GlyphCache::load(char ch, const sf::Image &texture) const {
  Glyph loaded;
  loaded.glyph = font.getGlyph(sf::String(ch)[0], size, true);
  const sf::IntRect texels = loaded.glyph.textureRect;
  const sf::Vector2i base_line(0, static_cast<int>(size));
  const sf::Vector2i top_left = sf::Vector2i(loaded.glyph.bounds.position) + base_line;
  const sf::IntRect ink = findInk(texture, texels);
  loaded.area = {top_left + ink.position - texels.position, ink.size};
  for (int y = 0; y < ink.size.y; y++)
    for (int x = 0; x < ink.size.x; x++)
      loaded.opacity.push_back(alphaAt(texture, ink.position + sf::Vector2i(x, y)));
  return loaded;
}

} // namespace gw
