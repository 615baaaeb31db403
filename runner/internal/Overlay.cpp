#include "internal/Overlay.h"

#include "Object.h"
#include "TextScreen.h"
#include "WorldManager.h"
#include "utility.h"

#include <algorithm>
#include <cmath>

namespace gw {

namespace {

constexpr Color OVERLAY_COLOR = WHITE;

/// The first cell of an extent, or with `size` its last one: a character is centred on
/// its position, so half a cell lies before that. One off the screen stands for all.
int cellAt(float start, float size, int limit) {
  const float cell = size > 0 ? std::ceil(start + size - 1) : std::ceil(start);
  return static_cast<int>(std::clamp(cell, -1.f, static_cast<float>(limit)));
}

void drawBox(const TextScreen &frame, const Object &object, const DrawText &draw) {
  const Box box = getWorldBox(&object);
  const Vector corner = box.getCorner();
  const int left = cellAt(corner.getX(), 0, TextScreen::WIDTH);
  const int top = cellAt(corner.getY(), 0, TextScreen::HEIGHT);
  const int right =
      std::max(cellAt(corner.getX(), box.getHorizontal(), TextScreen::WIDTH), left);
  const int bottom =
      std::max(cellAt(corner.getY(), box.getVertical(), TextScreen::HEIGHT), top);
  const auto mark = [&](int x, int y, char sign) {
    if (sign == '+' || frame.getCell(x, y).character == ' ')
      draw(Vector(static_cast<float>(x), static_cast<float>(y)), std::string(1, sign),
           OVERLAY_COLOR);
  };
  for (int x = left + 1; x < right; x++)
    for (const int y : {top, bottom})
      mark(x, y, '-');
  for (int y = top + 1; y < bottom; y++)
    for (const int x : {left, right})
      mark(x, y, '|');
  for (const int x : {left, right})
    for (const int y : {top, bottom})
      mark(x, y, '+');
  draw(Vector(static_cast<float>(left + 1), static_cast<float>(top)),
       std::to_string(object.getId()), OVERLAY_COLOR);
}

} // namespace

void drawOverlay(const TextScreen &frame, const std::string &status,
                 const DrawText &draw) {
  for (const Object *p_o : WorldManager::getInstance().getAllObjects())
    drawBox(frame, *p_o, draw);
  draw(Vector(), status, OVERLAY_COLOR);
}

} // namespace gw
