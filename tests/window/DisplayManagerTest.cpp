#include "Canvas.h"
#include "InputManager.h"
#include "WindowTest.h"

#include <filesystem>

namespace {

/// Without a window at first.
class DisplayManagerTest : public EngineTest {
protected:
  gw::DisplayManager &display = gw::DisplayManager::getInstance();

  std::vector<int> draw() {
    return {display.drawCh({1, 1}, 'x', gw::RED),
            display.drawString({1, 1}, "x", gw::LEFT_JUSTIFIED, gw::RED),
            display.swapBuffers()};
  }
};

/// Its test runs in a process of its own, because the window stays open to the end,
/// which must come without a crash.
class BadFontDeathTest : public EngineTest,
                         public testing::WithParamInterface<const char *> {};
class ColorTest : public WindowTest {};

} // namespace

TEST_F(DisplayManagerTest, DrawsOnlyWhileStartedHoweverOften) {
  const std::vector<int> FAILED = {-1, -1, -1};
  linkFont();
  EXPECT_EQ(logOf([&] { EXPECT_EQ(draw(), FAILED); }), std::vector<std::string>());
  for (int round = 0; round < 2; round++) {
    ASSERT_EQ(display.startUp(), 0);
    Canvas canvas;
    canvas.drawString({30, 20}, "round and round", gw::CENTER_JUSTIFIED, gw::GREEN);
    EXPECT_TRUE(canvas.isRight()) << round;
    display.shutDown();
    EXPECT_EQ(display.getWindow(), nullptr);
    EXPECT_EQ(draw(), FAILED);
  }
}

TEST_F(ColorTest, InvalidColorsAreWhiteAndComplainedAbout) {
  const std::string complaint =
      "WARNING: Invalid color provided. Using default glidewing color for ";
  for (const int color : {0, 7, 8, -1, 1000}) {
    const bool valid = color == 0 || color == 7;
    std::vector<std::string> expected;
    if (!valid)
      expected = {complaint + "character.", complaint + "window background."};
    Canvas canvas;
    EXPECT_EQ(logOf([&] {
                canvas.drawCh({4, 4}, 'x', color);
                EXPECT_EQ(canvas.setBackground(color), valid ? 0 : -1);
              }),
              expected)
        << color;
    canvas.nextFrame();
    canvas.drawCh({6, 4}, 'x', gw::GREEN);
    EXPECT_TRUE(canvas.isRight()) << color;
    canvas.setBackground(gw::BLACK);
    canvas.nextFrame();
  }
}

TEST_P(BadFontDeathTest, LeavesAWindowWithBackgroundsOnly) {
  const std::string font = GetParam();
  std::filesystem::remove_all(gw::FONT_FILE_DEFAULT);
  if (font == "Directory")
    std::filesystem::create_directory(gw::FONT_FILE_DEFAULT);
  if (font == "Empty")
    writeFile(gw::FONT_FILE_DEFAULT, "");
  if (font == "Rubbish")
    writeFile(gw::FONT_FILE_DEFAULT, std::string(5000, '\x01') + "no font");
  const auto run = [] {
    gw::DisplayManager &display = gw::DisplayManager::getInstance();
    EXPECT_EQ(logOf([&] {
                EXPECT_EQ(display.startUp(), -1);
                EXPECT_EQ(display.startUp(), 0) << "the window is there already";
                EXPECT_EQ(gw::InputManager::getInstance().startUp(), -1);
                display.shutDown();
              }),
              (std::vector<std::string>{
                  "ERROR: Unable to load font file 'gw-font.ttf'.",
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
  EXPECT_EXIT(
      {
        run();
        std::exit(HasFailure() ? 1 : 0);
      },
      testing::ExitedWithCode(0), "");
}

INSTANTIATE_TEST_SUITE_P(Font, BadFontDeathTest,
                         testing::Values("Missing", "Directory", "Empty", "Rubbish"),
                         [](const auto &test) { return test.param; });
