#pragma once

#include "Color.h"
#include "Vector.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace gw {

/// One cell of a `TextScreen`.
struct TextCell {
  char character = ' ';        ///< of printable ASCII
  Color color = COLOR_DEFAULT; ///< that of a blank, which shows none, is the default
};

/// What is on the display, as text: 128 x 48 cells, each with a character and a colour. A
/// program can read it, compare it and show it elsewhere. `DisplayManager` fills one
/// where it is asked to. A plain value.
class TextScreen {
public:
  static constexpr int WIDTH = 128; ///< columns
  static constexpr int HEIGHT = 48; ///< rows

  /// Blank everywhere.
  TextScreen() { clear(); }

  /// Makes all cells blank.
  void clear();

  /// Writes a row of characters over what is there; blanks cover as well. Cells outside
  /// the screen are left out.
  /// @param position of its first character, in cells; between cells, the nearest counts,
  /// and halfway the one to the left, or above: where the pointer is in the middle of a
  /// cell, what is drawn at the pointer is in that cell
  /// @param color that of an invalid one is the default
  void drawRow(const Vector &position, std::string_view row, Color color);

  /// One cell; blank outside the screen. Control characters are blanks, as in the window;
  /// what is not ASCII, which is a box there, is a `?`.
  TextCell getCell(int column, int row) const;

  /// The characters of a part of the screen, row by row, blanks at the end included. What
  /// lies outside the screen is blank. Width and height are 0 or more.
  std::vector<std::string> getRows(int column, int row, int width, int height) const;

  /// The same for all of it: 48 rows of 128 characters.
  std::vector<std::string> getRows() const { return getRows(0, 0, WIDTH, HEIGHT); }

  /// The colours in the same manner, a letter for each cell: the first of the colour's
  /// name (`k` for black, as `b` is blue); a blank where there is nothing to see. @{
  std::vector<std::string> getColorRows(int column, int row, int width, int height) const;
  std::vector<std::string> getColorRows() const {
    return getColorRows(0, 0, WIDTH, HEIGHT);
  } ///@}

  /// Whether the same is to be seen. @{
  friend bool operator==(const TextScreen &a, const TextScreen &b);
  friend bool operator!=(const TextScreen &a, const TextScreen &b) { return !(a == b); }
  ///@}

private:
  static constexpr std::size_t CELLS = std::size_t{WIDTH} * HEIGHT;

  // Apart, so that a row is written at once.
  std::array<char, CELLS> characters{};
  std::array<char, CELLS> colors{}; ///< a `Color` each; those of blanks say nothing
};

} // namespace gw
