#include "Frame.h"

#include "DisplayManager.h"
#include "LogManager.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace gw {

Frame::Frame(int new_width, int new_height, std::string new_frame_str)
    : width(new_width), height(new_height), frame_str(std::move(new_frame_str)) {
}

int Frame::draw(Vector position, Color color) const {
  if (frame_str.empty()) {
    LogManager::getInstance().writeLog(ERROR,
                                       "gw::Frame::draw(): Cannot draw empty frame.");
    return -1;
  }
  const DisplayManager &display = DisplayManager::getInstance();
  if (!display.isDrawable()) // spares a game without a display the walk over all rows
    return 0;
  const int x_off = width / 2;
  const int y_off = height / 2;
  const auto row_length = static_cast<std::size_t>(std::max(width, 0));
  std::string_view rest = frame_str;
  for (int y = 0; y < height; y++) {
    const Vector row_pos(position.getX(),
                         position.getY() + static_cast<float>(y - y_off));
    display.drawRow(row_pos, -x_off, rest.substr(0, row_length), color);
    rest.remove_prefix(std::min(row_length, rest.size()));
  }
  return 0;
}

} // namespace gw
