#include "Canvas.h"
#include "WindowTest.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr int COLUMNS = 128;
constexpr int ROWS = 48;
constexpr int ALL_COLORS = 8;

class DrawingTest : public WindowTest {};

/// Where random things are drawn.
struct Places {
  const char *name;
  unsigned seed;
  int parts;             ///< into how many parts a cell is divided, at the most
  int columns = COLUMNS; ///< of the part of the window that is drawn on
  int rows = ROWS;
};

/// Between whole pixels, but not quite anywhere: at places that take many digits it
/// is the graphics driver's rounding that decides over the last bit of a colour.
constexpr int FINE = 1024;

std::ostream &operator<<(std::ostream &out, const Places &places) {
  return out << places.name;
}

class RandomDrawingTest : public WindowTest, public testing::WithParamInterface<Places> {
protected:
  Canvas canvas;
  std::mt19937 engine{GetParam().seed};

  int number(int from, int to) { return std::uniform_int_distribution(from, to)(engine); }

  /// Up to some cells outside the part of the window that is drawn on.
  gw::Vector place() {
    const auto within = [&](float from, int to) {
      return std::uniform_real_distribution(from, static_cast<float>(to))(engine);
    };
    const gw::Vector any(within(-9, GetParam().columns), within(-3, GetParam().rows));
    const int coarser[] = {1, 2, GetParam().parts};
    const auto parts = static_cast<float>(std::min(coarser[number(0, 2)], coarser[2]));
    return {std::round(any.getX() * parts) / parts,
            std::round(any.getY() * parts) / parts};
  }

  /// At most a fifth of the width.
  std::string text() {
    const int longest = GetParam().columns / 5;
    std::string any(static_cast<std::size_t>(number(0, longest)), ' ');
    for (char &ch : any)
      ch = number(0, 3) == 0 ? ' ' : static_cast<char>(number(0, 255));
    return any;
  }

  /// A character, a string, or the same string on some lines, as a sprite is; of
  /// blanks only, it wipes out what it hits. Not always in the window, and now and
  /// then on a new background.
  void drawSomething() {
    const auto just = static_cast<gw::Justification>(number(-1, 3));
    const int kind = number(0, 9);
    if (kind == 0)
      canvas.setBackground(number(-1, ALL_COLORS));
    else if (kind == 1)
      canvas.drawCh(place(), text().append("x")[0], number(-1, ALL_COLORS));
    else if (kind == 2)
      drawLines(std::string(text().size(), ' '), just);
    else if (kind == 3)
      drawLines(text(), just);
    else
      canvas.drawString(place(), text(), just, number(0, ALL_COLORS - 1));
  }

private:
  void drawLines(const std::string &line, gw::Justification just) {
    const gw::Vector top = place();
    for (int i = number(1, 10); i > 0; i--)
      canvas.drawString(top + gw::Vector(0, static_cast<float>(i)), line, just,
                        number(0, ALL_COLORS - 1));
  }
};

} // namespace

TEST_F(DrawingTest, ABlankWipesItsCellOutOfWhatOthersDrewIntoTheWindow) {
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  sf::RectangleShape paint({200, 200});
  paint.setFillColor(sf::Color::Red);
  display.getWindow()->draw(paint);
  display.drawCh({9, 5}, ' ', gw::GREEN); // from (71.2, 83.2) to (79.2, 99.2)
  const sf::Image found = picture();
  for (unsigned x = 0; x < 200; x++)
    for (unsigned y = 0; y < 200; y++) {
      const bool wiped = x >= 71 && x < 79 && y >= 83 && y < 99;
      ASSERT_EQ(found.getPixel({x, y}), wiped ? sf::Color::Black : sf::Color::Red)
          << x << ", " << y;
    }
}

TEST_F(DrawingTest, EveryCharacterLooksAsDrawnByItselfInEveryColor) {
  Canvas canvas;
  for (int cell = 0; cell < COLUMNS * ROWS; cell++)
    canvas.drawCh(
        {static_cast<float>(cell % COLUMNS), static_cast<float>(cell / COLUMNS)},
        static_cast<char>(cell % 256), cell / 256 % ALL_COLORS);
  EXPECT_TRUE(canvas.isRight());
  canvas.nextFrame();
  EXPECT_TRUE(canvas.isRight()) << "an empty frame";
}

TEST_P(RandomDrawingTest, FramesOfAnythingLookAsDrawnCharacterByCharacter) {
  for (int frame = 0; frame < 4; frame++) {
    // One frame is looked at while it is being drawn, too.
    for (int part = frame == 1 ? 0 : 1; part < 2; part++) {
      for (int i = 0; i < 100; i++)
        drawSomething();
      ASSERT_TRUE(canvas.isRight()) << "frame " << frame << ", part " << part;
    }
    canvas.nextFrame();
  }
}

INSTANTIATE_TEST_SUITE_P(At, RandomDrawingTest,
                         testing::Values(Places{"WholeCells", 1, 1},
                                         Places{"HalfCells", 2, 2},
                                         Places{"FineParts", 4, FINE},
                                         Places{"CrowdedCells", 5, 2, 9, 4},
                                         Places{"CrowdedFineParts", 8, FINE, 9, 4},
                                         Places{"DenseFineParts", 10, FINE, 30, 12}),
                         [](const auto &test) { return test.param.name; });

TEST_F(DrawingTest, PlacesFarOutsideAndPlacesThatAreNoNumbersDoNoHarm) {
  using Limits = std::numeric_limits<float>;
  Canvas canvas;
  const auto drawAt = [&](float far) {
    for (const gw::Vector where :
         {gw::Vector(far, 5), gw::Vector(5, far), gw::Vector(far, far)})
      canvas.drawString(where, "far away", gw::CENTER_JUSTIFIED, gw::RED);
  };
  canvas.setBackground(gw::BLUE);
  for (const float far : {1e5f, 3e9f, Limits::max(), Limits::infinity()}) {
    drawAt(far);
    drawAt(-far);
  }
  canvas.drawString({5, 5}, "here", gw::LEFT_JUSTIFIED, gw::YELLOW);
  EXPECT_TRUE(canvas.isRight());
  canvas.nextFrame();

  drawAt(Limits::quiet_NaN());
  canvas.nextFrame();
  canvas.drawString({5, 5}, "here", gw::LEFT_JUSTIFIED, gw::YELLOW);
  EXPECT_TRUE(canvas.isRight()) << "the frame after one with places that are no numbers";
}
