#include "TextScreen.h"

#include "DisplayManager.h"

#include <algorithm>
#include <cmath>

namespace gw {

static_assert(TextScreen::WIDTH == WINDOW_HORIZONTAL_CHARS_DEFAULT &&
              TextScreen::HEIGHT == WINDOW_VERTICAL_CHARS_DEFAULT);

namespace {

char letterOf(TextCell cell) {
  if (cell.character == ' ')
    return ' ';
  return cell.color == BLACK ? 'k' : definitionOf(cell.color).name[0];
}

/// The rows of a part of the screen, made of what `pick` takes from each cell.
template <class Pick>
std::vector<std::string> collectRows(const TextScreen &screen, int column, int row,
                                     int width, int height, Pick pick) {
  std::vector<std::string> rows(static_cast<std::size_t>(std::max(height, 0)));
  for (std::string &line : rows) {
    for (int x = 0; x < width; x++)
      line += pick(screen.getCell(column + x, row));
    row++;
  }
  return rows;
}

} // namespace

void TextScreen::clear() {
  characters.fill(' ');
}

void TextScreen::drawRow(Vector position, std::string_view row, Color color) {
  // Numbers far outside, which may be more than an `int` holds, end here.
  const float y = std::ceil(position.getY() - 0.5f);
  const float x = std::ceil(position.getX() - 0.5f);
  if (!(y >= 0 && y < HEIGHT) || !(x > -1e6f && x < WIDTH))
    return;
  const int left = static_cast<int>(x);
  const auto cut = static_cast<std::size_t>(std::max(-left, 0));
  if (cut >= row.size())
    return;
  const auto column = static_cast<std::size_t>(std::max(left, 0));
  row = row.substr(cut, WIDTH - column);
  const auto start =
      static_cast<std::ptrdiff_t>(static_cast<std::size_t>(y) * WIDTH + column);
  std::copy(row.begin(), row.end(), characters.begin() + start);
  std::fill_n(colors.begin() + start, row.size(),
              static_cast<char>(isColorValid(color) ? color : COLOR_DEFAULT));
}

TextCell TextScreen::getCell(int column, int row) const {
  if (column < 0 || column >= WIDTH || row < 0 || row >= HEIGHT)
    return {};
  const auto index = static_cast<std::size_t>(row * WIDTH + column);
  const auto character = static_cast<unsigned char>(characters[index]);
  constexpr unsigned char DELETE = 127; // the last one of ASCII
  if (character <= ' ' || character == DELETE)
    return {};
  return {character > DELETE ? '?' : characters[index],
          static_cast<Color>(colors[index])};
}

std::vector<std::string> TextScreen::getRows(int column, int row, int width,
                                             int height) const {
  return collectRows(*this, column, row, width, height,
                     [](TextCell cell) { return cell.character; });
}

std::vector<std::string> TextScreen::getColorRows(int column, int row, int width,
                                                  int height) const {
  return collectRows(*this, column, row, width, height, letterOf);
}

bool operator==(const TextScreen &a, const TextScreen &b) {
  if (a.characters != b.characters)
    return false;
  for (std::size_t i = 0; i < TextScreen::CELLS; i++)
    if (a.characters[i] != ' ' && a.colors[i] != b.colors[i])
      return false;
  return true;
}

} // namespace gw
