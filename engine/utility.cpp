#include "utility.h"

#include "Object.h"

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

} // namespace

const char *getTimeString() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
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

bool isRegularFile(const std::string &filename) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(filename, ignored);
}

} // namespace gw
