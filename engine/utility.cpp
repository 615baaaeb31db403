#include "utility.h"

#include "Object.h"
#include "internal/platform.h"

#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace gw {

namespace {

char time_str[32];

/// True when the closed ranges [a, a + a_length] and [b, b + b_length] share a
/// point. Written as "one starts inside the other", which also says what a
/// negative length means: a range that contains nothing but may lie in one.
bool rangesOverlap(float a, float a_length, float b, float b_length) {
  return (b >= a && b <= a + a_length) || (a >= b && a <= b + b_length);
}

/// How many bytes the character that begins at `start` has; 0 for a control character
/// and for what is no UTF-8.
std::size_t lengthOfPrintable(const std::string &text, std::size_t start) {
  const auto first = static_cast<unsigned char>(text[start]);
  if (first < 128)
    return first >= 32 && first != 127 ? 1 : 0;
  if (first < 0xc0 || first > 0xf4)
    return 0;
  const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
  unsigned code = first & (0xffu >> (length + 1));
  for (std::size_t i = start + 1; i < start + length; i++) {
    // At the end of the text stands a zero, which is no part of a character.
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xc0) != 0x80)
      return 0;
    code = code << 6 | (next & 0x3fu);
  }
  // The first code of each length; those of two bytes begin with control characters.
  constexpr unsigned LOWEST[] = {0xa0, 0x800, 0x10000};
  const bool is_surrogate = code >= 0xd800 && code < 0xe000;
  return code >= LOWEST[length - 2] && code < 0x110000 && !is_surrogate ? length : 0;
}

} // namespace

const char *getTimeString() {
  const std::tm local = toLocalTime(std::time(nullptr));
  std::snprintf(time_str, sizeof time_str, "%02d:%02d:%02d", local.tm_hour, local.tm_min,
                local.tm_sec);
  return time_str;
}

bool areFloatsEqual(float a, float b, float epsilon) {
  return std::fabs(a - b) < epsilon;
}

bool positionsIntersect(Vector p1, Vector p2) {
  return std::fabs(p1.getX() - p2.getX()) <= 1 && std::fabs(p1.getY() - p2.getY()) <= 1;
}

bool boxesIntersect(Box a, Box b) {
  return rangesOverlap(a.getCorner().getX(), a.getHorizontal(), b.getCorner().getX(),
                       b.getHorizontal()) &&
         rangesOverlap(a.getCorner().getY(), a.getVertical(), b.getCorner().getY(),
                       b.getVertical());
}

Box getWorldBox(const Object *p_o) {
  return getWorldBox(p_o, p_o->getPosition());
}

Box getWorldBox(const Object *p_o, Vector where) {
  Box box = p_o->getBox();
  box.setCorner(box.getCorner() + where);
  return box;
}

void discardCarriageReturn(std::string &str) {
  if (!str.empty() && str.back() == '\r')
    str.pop_back();
}

std::string printable(const std::string &text) {
  std::string result;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = lengthOfPrintable(text, i);
    if (length > 0) {
      result.append(text, i, length);
      i += length;
    } else {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02x",
                    static_cast<unsigned char>(text[i++]));
      result += escape;
    }
  }
  return result;
}

std::string shortened(const std::string &text) {
  constexpr std::size_t LONGEST = 200;
  return text.size() <= LONGEST ? text : text.substr(0, LONGEST) + "...";
}

bool isRegularFile(const std::string &filename) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(std::filesystem::u8path(filename), ignored);
}

} // namespace gw
