#include "Frame.h"

#include "LogManager.h"

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
  if (!display.hasWindow()) // spares a game without one the walk over all cells
    return 0;
  const int x_off = width / 2;
  const int y_off = height / 2;
  for (int y = 0; y < height; y++)
    for (int x = 0; x < width; x++) {
      const Vector cell(position.getX() + static_cast<float>(x - x_off),
                        position.getY() + static_cast<float>(y - y_off));
      const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x);
      display.drawCh(cell, frame_str[index], color);
    }
  return 0;
}

} // namespace gw
