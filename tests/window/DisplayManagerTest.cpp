#include "Canvas.h"
#include "InputManager.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>

namespace {

constexpr int COLUMNS = 128;
constexpr int ROWS = 48;
constexpr int ALL_COLORS = 8;

using DisplayManagerTest = EngineTest; // without a window at first
using DrawingTest = WindowTest;

/// In a process of its own: the window stays open to the end, which must not crash.
using BadFontDeathTest = EngineTest;

/// Where random things are drawn.
struct Places {
  int parts = 1;         ///< into how many parts a cell is divided, at the most
  int columns = COLUMNS; ///< of the part of the window that is drawn on
  int rows = ROWS;
};

/// Between whole pixels, but not quite anywhere: at places that take many digits it
/// is the graphics driver's rounding that decides over the last bit of a colour.
constexpr int FINE = 1024;

class RandomDrawingTest : public WindowTest {
protected:
  Canvas canvas;
  std::mt19937 engine{1};
  Places places{1};

  int number(int from, int to) { return std::uniform_int_distribution(from, to)(engine); }

  /// Up to some cells outside the part of the window that is drawn on.
  gw::Vector place() {
    const int parts = number(0, 1) == 0 ? places.parts : 1;
    const auto within = [&](int from, int to) {
      return static_cast<float>(number(from * parts, to * parts)) /
             static_cast<float>(parts);
    };
    return {within(-9, places.columns), within(-3, places.rows)};
  }

  /// At most a fifth of the width.
  std::string text() {
    std::string any(static_cast<std::size_t>(number(0, places.columns / 5)), ' ');
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
    const gw::Vector top = place();
    const std::string line = kind == 2 ? std::string(text().size(), ' ') : text();
    if (kind == 0)
      canvas.setBackground(number(-1, ALL_COLORS));
    else if (kind == 1)
      canvas.drawCh(top, (line + "x")[0], number(-1, ALL_COLORS));
    else
      for (int i = kind < 4 ? number(1, 10) : 1; i > 0; i--)
        canvas.drawString(top + gw::Vector(0, static_cast<float>(i)), line, just,
                          number(0, ALL_COLORS - 1));
  }
};

} // namespace

TEST_F(DisplayManagerTest, DrawsOnlyWhileStartedHoweverOften) {
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  const auto expectNothing = [&] {
    EXPECT_EQ(display.drawCh({1, 1}, 'x', gw::RED), -1);
    EXPECT_EQ(display.drawString({1, 1}, "x", gw::LEFT_JUSTIFIED, gw::RED), -1);
    EXPECT_EQ(display.swapBuffers(), -1);
    EXPECT_EQ(display.getWindow(), nullptr);
  };
  linkFont();
  EXPECT_EQ(logOf(expectNothing), Lines());
  for (int round = 0; round < 2; round++) {
    ASSERT_EQ(display.startUp(), 0);
    Canvas canvas;
    canvas.drawString({30, 20}, "round and round", gw::CENTER_JUSTIFIED, gw::GREEN);
    EXPECT_TRUE(canvas.isRight()) << round;
    display.shutDown();
    expectNothing();
  }
}

TEST_F(BadFontDeathTest, LeavesAWindowWithBackgroundsOnly) {
  const auto run = [] {
    gw::DisplayManager &display = gw::DisplayManager::getInstance();
    EXPECT_EQ(logOf([&] {
                EXPECT_EQ(display.startUp(), -1);
                EXPECT_EQ(display.startUp(), 0) << "the window is there already";
                EXPECT_EQ(gw::InputManager::getInstance().startUp(), -1);
                display.shutDown();
              }),
              (Lines{"ERROR: Unable to load font file 'gw-font.ttf'.",
                     "WARNING: DisplayManager is not started. Starting up InputManager "
                     "requires DisplayManager to be started.",
                     "INFO: DisplayManager is already shut down."}));
    ASSERT_TRUE(display.getWindow());
    Canvas canvas(false);
    canvas.setBackground(gw::BLUE);
    canvas.drawString({20, 20}, "letters without looks", gw::LEFT_JUSTIFIED, gw::RED);
    EXPECT_TRUE(canvas.isRight());
    canvas.nextFrame();
    EXPECT_TRUE(canvas.isRight());
  };
  for (const std::string font : {"missing", "directory", "", "\1 rubbish"}) {
    std::filesystem::remove_all(gw::FONT_FILE_DEFAULT);
    if (font == "directory")
      std::filesystem::create_directory(gw::FONT_FILE_DEFAULT);
    else if (font != "missing")
      writeFile(gw::FONT_FILE_DEFAULT, font.empty() ? font : font + std::string(5000, 1));
    EXPECT_EXIT((run(), std::exit(HasFailure())), testing::ExitedWithCode(0), "") << font;
  }
}

// One unit an em makes each glyph as large as thousands of them are in a good font.
TEST_F(DisplayManagerTest, ADamagedFontLeavesCharactersOutAndSaysSoOnce) {
  std::ifstream file(GLIDEWING_RUN_DIR "/gw-font.ttf", std::ios::binary);
  std::string font(std::istreambuf_iterator<char>(file), {});
  const auto entry = font.find("head"); // of its table: name, checksum, offset, length
  ASSERT_NE(entry, std::string::npos);
  std::size_t table = 0;
  for (std::size_t i = 8; i < 12; i++)
    table = table << 8 | static_cast<unsigned char>(font[entry + i]);
  font[table + 18] = 0; // units an em
  font[table + 19] = 16;
  writeFile(gw::FONT_FILE_DEFAULT, font);
  const Lines log = logOf([] {
    ASSERT_EQ(gw::DisplayManager::getInstance().startUp(), 0);
    Canvas canvas(false);
    canvas.drawString({1, 1}, "letters", gw::LEFT_JUSTIFIED, gw::RED);
    EXPECT_TRUE(canvas.isRight());
  });
  EXPECT_EQ(log, (Lines{"WARNING: gw::GlyphCache::make() - The font is damaged. "
                        "Characters are left out.",
                        "INFO: DisplayManager is started up."}));
  gw::DisplayManager::getInstance().shutDown();
}

TEST_F(DrawingTest, InvalidColorsAreComplainedAbout) {
  const std::string complaint =
      "WARNING: Invalid color provided. Using default glidewing color for ";
  const Lines complaints = {complaint + "character.", complaint + "window background."};
  for (const int color : {0, 7, 8, -1, 1000}) {
    const bool valid = color == 0 || color == 7;
    const auto draw = [color, valid] {
      Canvas canvas;
      canvas.drawCh({4, 4}, 'x', color);
      EXPECT_EQ(canvas.setBackground(color), valid ? 0 : -1);
    };
    EXPECT_EQ(logOf(draw), valid ? Lines() : complaints) << color;
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

TEST_F(RandomDrawingTest, FramesOfAnythingLookAsDrawnCharacterByCharacter) {
  const Places cases[] = {{1}, {2}, {FINE}, {2, 9, 4}, {FINE, 9, 4}, {FINE, 30, 12}};
  for (const Places &c : cases) {
    places = c;
    for (int frame = 0; frame < 4; frame++) {
      // One frame is looked at while it is being drawn, too.
      for (int part = frame == 1 ? 0 : 1; part < 2; part++) {
        for (int i = 0; i < 100; i++)
          drawSomething();
        ASSERT_TRUE(canvas.isRight()) << &c - cases << ", " << frame << ", " << part;
      }
      canvas.nextFrame();
    }
  }
}

// What a window manager makes of the window, and a game of its view.
TEST_F(DrawingTest, AScaledWindowShowsAllAndACameraWhatItLooksAt) {
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  const auto expectRed = [&](gw::Vector cell, float x, float y) {
    display.setBackgroundColor(gw::RED);
    EXPECT_EQ(display.drawCh(cell, ' ', gw::RED), 0);
    const sf::Image seen = picture();
    const sf::Vector2f size(seen.getSize());
    const auto colorAt = [&](float place) {
      return seen.getPixel(
          sf::Vector2u(sf::Vector2f(size.x * place / 1024, size.y * y / 768)));
    };
    EXPECT_EQ(colorAt(x), sf::Color::Red) << size.x << " pixels: " << cell.getX();
    EXPECT_EQ(colorAt(x - 10), sf::Color::Black) << size.x << " pixels: " << cell.getX();
    display.setBackgroundColor(gw::BLACK);
    display.swapBuffers();
    display.swapBuffers();
  };
  for (const sf::Vector2u size : {sf::Vector2u(1280, 960), {512, 384}, {1024, 768}}) {
    display.getWindow()->setSize(size);
    while (display.pollEvent())
      continue;
    display.swapBuffers();
    expectRed({1, 1}, 12, 27);
    expectRed({126, 46}, 1012, 747);
    expectRed({10.3f, 20.3f}, 86, 336); // between pixels
  }
  display.getWindow()->setView(sf::View({20000, 1000}, {1024, 768}));
  expectRed({2500, 62}, 516, 384);
  expectRed({2500, 62}, 516, 384); // with the view from the start of the frame
}

TEST_F(DrawingTest, PlacesFarOutsideAndPlacesThatAreNoNumbersDoNoHarm) {
  using Limits = std::numeric_limits<float>;
  Canvas canvas;
  const auto drawAt = [&](float far) {
    for (const gw::Vector where : {gw::Vector(far, 5), {5, far}, {far, far}})
      canvas.drawString(where, "far away", gw::CENTER_JUSTIFIED, gw::RED);
  };
  canvas.setBackground(gw::BLUE);
  for (const float far : {1e5f, -1e5f, 3e9f, -3e9f, Limits::max(), Limits::lowest(),
                          Limits::infinity(), -Limits::infinity()})
    drawAt(far);
  canvas.drawString({5, 5}, "here", gw::LEFT_JUSTIFIED, gw::YELLOW);
  EXPECT_TRUE(canvas.isRight());
  canvas.nextFrame();

  drawAt(Limits::quiet_NaN());
  canvas.nextFrame();
  canvas.drawString({5, 5}, "here", gw::LEFT_JUSTIFIED, gw::YELLOW);
  EXPECT_TRUE(canvas.isRight()) << "the frame after one with places that are no numbers";
}
