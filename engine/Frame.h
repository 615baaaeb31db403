#pragma once

#include "Color.h"
#include "Vector.h"

#include <string>

namespace gw {

/// One rectangular picture of characters; a plain value. The character of row r and
/// column c is number r * width + c of the string; an empty string is an empty frame.
/// Nothing is checked here: the resource manager checks every row that it reads, and
/// sprites refuse frames of another size.
class Frame {
public:
  /// Without arguments: empty. @{
  Frame() = default;
  Frame(int new_width, int new_height, std::string new_frame_str); ///@}

  /// Characters per row. @{
  void setWidth(int new_width) { width = new_width; }
  int getWidth() const { return width; } ///@}

  /// Rows. @{
  void setHeight(int new_height) { height = new_height; }
  int getHeight() const { return height; } ///@}

  /// All characters, row by row. @{
  void setString(std::string new_frame_str) { frame_str = new_frame_str; }
  std::string getString() const { return frame_str; } ///@}

  /// Draws all characters, blanks included, row by row. An odd size is centred
  /// exactly on `position` (cells); an even one has one more column on the left
  /// and one more row above than on the other side.
  /// @return 0, or -1 with an ERROR for an empty frame
  int draw(Vector position, Color color) const;

private:
  int width = 0;
  int height = 0;
  std::string frame_str;
};

} // namespace gw
