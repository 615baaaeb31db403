#include "PixelSet.h"

#include <algorithm>

namespace gw {

namespace {

constexpr std::uint64_t ALL = ~std::uint64_t{0};

} // namespace

void PixelSet::reset(sf::Vector2i new_size) {
  size = new_size;
  words_per_row = (size.x + WORD_PIXELS - 1) / WORD_PIXELS;
  words.assign(static_cast<std::size_t>(words_per_row * size.y), 0);
}

void PixelSet::insert(sf::IntRect area) {
  forEachWord(area, [this](std::size_t i, std::uint64_t mask) {
    words[i] |= mask;
    return false;
  });
}

void PixelSet::remove(sf::IntRect area) {
  forEachWord(area, [this](std::size_t i, std::uint64_t mask) {
    words[i] &= ~mask;
    return false;
  });
}

bool PixelSet::intersects(sf::IntRect area) const {
  return forEachWord(
      area, [this](std::size_t i, std::uint64_t mask) { return (words[i] & mask) != 0; });
}

bool PixelSet::hasAny(int word, int top, int bottom) const {
  for (int y = top; y < bottom; y++)
    if (words[static_cast<std::size_t>(y * words_per_row + word)] != 0)
      return true;
  return false;
}

template <class Visit> bool PixelSet::forEachWord(sf::IntRect area, Visit visit) const {
  const int left = std::max(area.position.x, 0);
  const int top = std::max(area.position.y, 0);
  const int right = std::min(area.position.x + area.size.x, size.x);
  const int bottom = std::min(area.position.y + area.size.y, size.y);
  if (left >= right)
    return false;
  const int first = left / WORD_PIXELS;
  const int last = (right - 1) / WORD_PIXELS;
  const std::uint64_t from_left = ALL << (left % WORD_PIXELS);
  const std::uint64_t to_right = ALL >> (WORD_PIXELS - 1 - (right - 1) % WORD_PIXELS);
  for (int y = top; y < bottom; y++)
    for (int word = first; word <= last; word++) {
      const std::uint64_t mask =
          (word == first ? from_left : ALL) & (word == last ? to_right : ALL);
      if (visit(static_cast<std::size_t>(y * words_per_row + word), mask))
        return true;
    }
  return false;
}

} // namespace gw
