#include "internal/SpriteReader.h"

#include "LogManager.h"
#include "utility.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace gw {

namespace {

/// The lines of a file, without their ends; empty ones past the last.
class LineReader {
public:
  explicit LineReader(std::istream &init_file) : file(init_file) {}

  const std::string &next() {
    line.clear();
    is_there = static_cast<bool>(std::getline(file, line));
    discardCarriageReturn(line);
    number++;
    return line;
  }

  const std::string &current() const { return line; }
  long long getNumber() const { return number; } ///< of the current one, from 1 on
  bool isThere() const { return is_there; }      ///< not past the last

private:
  std::istream &file;
  std::string line;
  long long number = 0;
  bool is_there = true;
};

struct Number {
  int value;  ///< of the digits the line begins with; the nearest int if it is none
  bool valid; ///< nothing but digits, and an int
};

Number parseNumber(const std::string &line) {
  errno = 0;
  const long value = std::strtol(line.c_str(), nullptr, 10);
  const bool fits = errno == 0 && value >= INT_MIN && value <= INT_MAX;
  const bool digits = std::all_of(line.begin(), line.end(),
                                  [](unsigned char ch) { return std::isdigit(ch); });
  const long clamped = std::clamp<long>(value, INT_MIN, INT_MAX);
  return {static_cast<int>(clamped), fits && digits};
}

/// Reads one number of the head. @param complaint a format for the number read
bool readNumber(LineReader &lines, int minimum, const char *complaint, int &value) {
  const Number number = parseNumber(lines.next());
  value = number.value;
  if (number.valid && value >= minimum)
    return true;
  LogManager::getInstance().writeLog(ERROR, complaint, value);
  return false;
}

bool readColor(LineReader &lines, Color &color) {
  const std::string &word = lines.next();
  const auto found =
      std::find_if(COLORS.begin(), COLORS.end(),
                   [&word](const ColorDefinition &known) { return word == known.name; });
  if (found == COLORS.end()) {
    LogManager::getInstance().writeLog(ERROR, "Line 5: Invalid Sprite color.");
    return false;
  }
  color = static_cast<Color>(found - COLORS.begin());
  return true;
}

struct Head {
  int frame_count;
  int width;
  int height;
  int slowdown;
  Color color;
};

bool readHead(LineReader &lines, Head &head) {
  return readNumber(lines, 1,
                    "Line 1: Frame count %d. Expected frame count greater than 0.",
                    head.frame_count) &&
         readNumber(lines, 1, "Line 2: Sprite width %d. Expected width greater than 0.",
                    head.width) &&
         readNumber(lines, 1, "Line 3: Sprite height %d. Expected height greater than 0.",
                    head.height) &&
         readNumber(lines, 0,
                    "Line 4: Sprite slowdown %d. Expected slowdown greater than or equal "
                    "to 0.",
                    head.slowdown) &&
         readColor(lines, head.color);
}

/// Reads all frames. Their number is only a claim of the file, so nothing is
/// reserved for it.
bool readFrames(LineReader &lines, const Head &head, std::vector<Frame> &frames) {
  const auto width = static_cast<std::size_t>(head.width);
  for (int f = 0; f < head.frame_count; f++) {
    std::string rows;
    for (int r = 0; r < head.height; r++) {
      const std::string &row = lines.next();
      if (row.size() != width) {
        LogManager::getInstance().writeLog(
            ERROR, "Line %lld: Line width %lld, expected %d.", lines.getNumber(),
            static_cast<long long>(row.size()), head.width);
        return false;
      }
      rows += row;
    }
    frames.emplace_back(head.width, head.height, std::move(rows));
  }
  return true;
}

std::unique_ptr<Sprite> makeSprite(const Head &head, std::vector<Frame> &&frames) {
  auto sprite = std::make_unique<Sprite>(head.frame_count);
  sprite->setWidth(head.width);
  sprite->setHeight(head.height);
  sprite->setSlowdown(head.slowdown);
  sprite->setColor(head.color);
  for (Frame &frame : frames)
    sprite->addFrame(std::move(frame));
  return sprite;
}

constexpr long long COLOR_LINE = 5; ///< numbers are above it, and rows below

bool isAscii(char ch) {
  return static_cast<unsigned char>(ch) < 128;
}

bool isPrintable(char ch) {
  return ch >= ' ' && ch <= '~';
}

/// Whether a character is out of place in a line of that number, or may not look like
/// what it is.
bool isOdd(char ch, long long line_number) {
  if (line_number < COLOR_LINE)
    return ch < '0' || ch > '9';
  if (line_number == COLOR_LINE)
    return ch < 'a' || ch > 'z';
  return !isPrintable(ch);
}

std::string describe(char ch) {
  if (ch == ' ')
    return "a blank";
  if (ch == '\t')
    return "a tab";
  if (isPrintable(ch))
    return std::string("'") + ch + "'";
  std::array<char, 8> code{};
  std::snprintf(code.data(), code.size(), "0x%02x", static_cast<unsigned char>(ch));
  return code.data() + std::string(isAscii(ch) ? ", a control character"
                                               : ", part of what is not ASCII");
}

/// The remark about the current line.
std::string remarkOn(const LineReader &lines) {
  const std::string &line = lines.current();
  const long long number = lines.getNumber();
  const std::string place = "line " + std::to_string(number) + ": ";
  if (!lines.isThere())
    return place + "the file ends before it";
  if (line.empty())
    return place + "it is empty";
  const auto odd = std::find_if(line.begin(), line.end(),
                                [number](char ch) { return isOdd(ch, number); });
  if (odd != line.end())
    return place + "column " + std::to_string(odd - line.begin() + 1) + " is " +
           describe(*odd);
  const bool is_too_large = number < COLOR_LINE && !parseNumber(line).valid;
  return is_too_large ? place + "the number is too large" : "";
}

} // namespace

std::unique_ptr<Sprite> readSprite(std::istream &file, std::string &remark) {
  LineReader lines(file);
  Head head{};
  std::vector<Frame> frames;
  if (!readHead(lines, head) || !readFrames(lines, head, frames)) {
    LogManager::getInstance().writeLog(ERROR, "Line is: '%s'",
                                       shortened(lines.current()).c_str());
    remark = remarkOn(lines);
    return nullptr;
  }
  return makeSprite(head, std::move(frames));
}

} // namespace gw
