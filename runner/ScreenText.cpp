#include "ScreenText.h"

#include "utility.h"

#include <cstdio>
#include <sstream>
#include <vector>

namespace gw {

namespace {

std::vector<std::string> splitLines(const std::string &text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    discardCarriageReturn(line);
    lines.push_back(line);
  }
  return lines;
}

/// What a line of such a text shows: "row 7", or "colours of row 7".
std::string nameOf(std::size_t line) {
  constexpr std::size_t PICTURE = TextScreen::HEIGHT + 1; // with the frame above it
  const std::size_t row = line % PICTURE;
  if (row == 0)
    return "the frame";
  return (line < PICTURE ? "row " : "colours of row ") + std::to_string(row - 1);
}

} // namespace

std::string toText(const TextScreen &screen) {
  const std::string edge = "+" + std::string(TextScreen::WIDTH, '-') + "+\n";
  std::string text = edge;
  for (const auto &rows : {screen.getRows(), screen.getColorRows()}) {
    for (const std::string &row : rows)
      text.append("|").append(row).append("|\n");
    text += edge;
  }
  return text;
}

std::string differencesFrom(const std::string &expected, const TextScreen &screen) {
  const std::vector<std::string> wanted = splitLines(expected);
  const std::vector<std::string> found = splitLines(toText(screen));
  std::string wanted_picture;
  std::string found_picture;
  for (std::size_t i = 0; i < std::max(wanted.size(), found.size()); i++) {
    const std::string wanted_line = i < wanted.size() ? wanted[i] : "(nothing)";
    const std::string found_line = i < found.size() ? found[i] : "(nothing)";
    if (wanted_line == found_line)
      continue;
    wanted_picture += wanted_line + " " + nameOf(i) + "\n";
    found_picture += found_line + " " + nameOf(i) + "\n";
  }
  return wanted_picture.empty()
             ? ""
             : "expected:\n" + wanted_picture + "found:\n" + found_picture;
}

} // namespace gw
