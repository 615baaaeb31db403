#include "TextScreen.h"

#include "DisplayManager.h"

#include <algorithm>

namespace gw {

static_assert(TextScreen::WIDTH == WINDOW_HORIZONTAL_CHARS_DEFAULT &&
              TextScreen::HEIGHT == WINDOW_VERTICAL_CHARS_DEFAULT);

namespace {

/// The nearest whole number, and halfway the lower one. (`std::ceil` is a call of a
/// function, for every row of every picture.)
int nearest(float value) {
  const float low = value - 0.5f;
  const int truncated = static_cast<int>(low);
  return truncated + (static_cast<float>(truncated) < low ? 1 : 0);
}

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

void TextScreen::drawRow(const Vector &position, std::string_view row, Color color) {
  const float x = position.getX();
  const float y = position.getY();
  // Numbers far outside, which may be more than an `int` holds, end here.
  if (!(y > -1 && y <= HEIGHT) || !(x > -1e6f && x <= WIDTH))
    return;
  const int left = nearest(x);
  const int top = nearest(y);
  if (left >= WIDTH || top < 0 || top >= HEIGHT)
    return;
  const auto cut = static_cast<std::size_t>(std::max(-left, 0));
  if (cut >= row.size())
    return;
  const auto column = static_cast<std::size_t>(std::max(left, 0));
  row = row.substr(cut, WIDTH - column);
  const auto start = static_cast<std::ptrdiff_t>(top * WIDTH) + std::max(left, 0);
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
