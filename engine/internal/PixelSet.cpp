#include "internal/PixelSet.h"

#include <algorithm>

namespace gw {

namespace {

constexpr int WORD_PIXELS = 64;
constexpr std::uint64_t ALL_BITS = ~std::uint64_t{0};

} // namespace

void PixelSet::reset(sf::Vector2i new_size) {
  size = new_size;
  const int columns = (size.x + WORD_PIXELS - 1) / WORD_PIXELS;
  is_empty = true;
  words.assign(static_cast<std::size_t>(columns * size.y), 0);
}

void PixelSet::insert(sf::IntRect area) {
  is_empty = false;
  forEachColumn(area, [this](std::size_t first, std::size_t end, std::uint64_t mask) {
    for (std::size_t i = first; i < end; i++)
      words[i] |= mask;
  });
}

void PixelSet::remove(sf::IntRect area) {
  forEachColumn(area, [this](std::size_t first, std::size_t end, std::uint64_t mask) {
    for (std::size_t i = first; i < end; i++)
      words[i] &= ~mask;
  });
}

bool PixelSet::intersects(sf::IntRect area) const {
  if (is_empty)
    return false;
  std::uint64_t found = 0;
  forEachColumn(area,
                [this, &found](std::size_t first, std::size_t end, std::uint64_t mask) {
                  for (std::size_t i = first; i < end; i++)
                    found |= words[i] & mask;
                });
  return found != 0;
}

template <class Visit> void PixelSet::forEachColumn(sf::IntRect area, Visit visit) const {
  const int left = std::max(area.position.x, 0);
  const int top = std::max(area.position.y, 0);
  const int right = std::min(area.position.x + area.size.x, size.x);
  const int bottom = std::min(area.position.y + area.size.y, size.y);
  if (left >= right || top >= bottom)
    return;
  const int first = left / WORD_PIXELS;
  const int last = (right - 1) / WORD_PIXELS;
  const std::uint64_t from_left = ALL_BITS << (left % WORD_PIXELS);
  const std::uint64_t to_right =
      ALL_BITS >> (WORD_PIXELS - 1 - (right - 1) % WORD_PIXELS);
  for (int column = first; column <= last; column++)
    visit(static_cast<std::size_t>(column * size.y + top),
          static_cast<std::size_t>(column * size.y + bottom),
          (column == first ? from_left : ALL_BITS) &
              (column == last ? to_right : ALL_BITS));
}

} // namespace gw
