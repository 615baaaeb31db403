#include "WindowTest.h"

#include <algorithm>

namespace {

using FontTest = WindowTest;

constexpr char FULL = '#', SOFT = '+', NONE = ' '; // ink of a pixel

/// The window as areas of so many cells, side by side.
constexpr int AREA_WIDTH = 8, AREA_HEIGHT = 5, AREAS_IN_A_ROW = 16;

/// Draws lines in an area, so many cells from its left and its upper edge.
void draw(int area, int margin, const Lines &lines) {
  const int x = area % AREAS_IN_A_ROW * AREA_WIDTH + margin;
  int y = area / AREAS_IN_A_ROW * AREA_HEIGHT + margin;
  for (const std::string &line : lines)
    gw::DisplayManager::getInstance().drawString(
        gw::Vector(static_cast<float>(x), static_cast<float>(y++)), line,
        gw::LEFT_JUSTIFIED, gw::WHITE);
}

/// The ink in an area, line by line, each with its end.
std::string inkOf(const sf::Image &drawn, int area) {
  constexpr int WIDTH = 8, HEIGHT = 16, LEFT = -1, TOP = 3; // of what is seen of a cell
  std::string ink;
  for (int y = 0; y < AREA_HEIGHT * HEIGHT; y++) {
    for (int x = 1; x < AREA_WIDTH * WIDTH; x++) {
      const auto strength =
          drawn
              .getPixel(sf::Vector2u(
                  sf::Vector2i(area % AREAS_IN_A_ROW * AREA_WIDTH * WIDTH + LEFT + x,
                               area / AREAS_IN_A_ROW * AREA_HEIGHT * HEIGHT + TOP + y)))
              .r;
      ink += strength == 255 ? FULL : strength > 0 ? SOFT : NONE;
    }
    ink += '\n';
  }
  return ink;
}

/// Takes away the full ink that is joined to a pixel.
void erase(std::string &ink, std::size_t at) {
  if (at >= ink.size() || ink[at] != FULL)
    return;
  ink[at] = NONE;
  const std::size_t line = ink.find('\n') + 1;
  for (const std::size_t next : {at - 1, at + 1, at - line, at + line})
    erase(ink, next);
}

/// How many parts the full ink has that do not touch.
int countParts(std::string ink) {
  int parts = 0;
  for (; ink.find(FULL) != std::string::npos; parts++)
    erase(ink, ink.find(FULL));
  return parts;
}

} // namespace

TEST_F(FontTest, CharactersLoseNothingToTheirNeighboursAndAreCrispAndDifferent) {
  std::string all = "\x80"; // shows the box
  for (char ch = '!'; ch <= '~'; ch++)
    all += ch;
  const int count = static_cast<int>(all.size());
  const auto at = [&all](int i) {
    return std::string(1, all[static_cast<std::size_t>(i)]);
  };
  for (int i = 0; i < count; i++)
    draw(i, 2, {at(i)});
  const sf::Image alone = picture();
  gw::DisplayManager::getInstance().swapBuffers();
  for (int i = 0; i < count; i++)
    draw(i, 1, {"   ", " " + at(i) + " ", "   "});
  const sf::Image between_blanks = picture();

  std::string soft;
  Lines seen;
  for (int i = 0; i < count; i++) {
    const std::string ink = inkOf(alone, i);
    EXPECT_TRUE(inkOf(between_blanks, i) == ink) << at(i) << " loses ink";
    EXPECT_EQ(std::count(seen.begin(), seen.end(), ink), 0)
        << at(i) << " looks like another";
    seen.push_back(ink);
    if (ink.find(SOFT) != std::string::npos)
      soft += at(i);
  }
  EXPECT_EQ(soft, "MWmw") << "only what has three strokes may be soft";
}

TEST_F(FontTest, LinesAndAreasGoOnFromCellToCell) {
  const struct {
    Lines lines;
    int parts;
  } cases[] = {
      {{"---"}, 1},    {{"___"}, 1},        {{"+++"}, 1},       {{"###"}, 1},
      {{"-+-"}, 1},    {{"==="}, 2},        {{"|", "|"}, 1},    {{"+", "+"}, 1},
      {{"#", "#"}, 1}, {{"/\\", "\\/"}, 1}, {{" /", "/ "}, 1},  {{"\\ ", " \\"}, 1},
      {{"()"}, 1},     {{"(_)", "-( "}, 1}, {{"_/\\_"}, 1},     {{"[_]"}, 1},
      {{"-<>-"}, 1},   {{"|", "'"}, 1},     {{",", "|"}, 1},    {{"-*-"}, 1},
      {{"~~~"}, 1},    {{"^^^"}, 1},        {{"+-+", "| |"}, 1}};
  int area = 0;
  for (const auto &[lines, parts] : cases)
    draw(area++, 1, lines);
  const sf::Image drawn = picture();
  area = 0;
  for (const auto &[lines, parts] : cases)
    EXPECT_EQ(countParts(inkOf(drawn, area++)), parts) << testing::PrintToString(lines);
}
