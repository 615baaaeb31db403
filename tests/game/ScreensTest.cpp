#include "Screens.h"
#include "DisplayManager.h"
#include "GameTest.h"

namespace {

class ScreensTest : public GameTest {
protected:
  void SetUp() override {
    GameTest::SetUp();
    display().setTextKept(true);
  }

  void TearDown() override {
    display().setTextKept(false);
    GameTest::TearDown();
  }

  static gw::DisplayManager &display() { return gw::DisplayManager::getInstance(); }

  /// What the next step shows.
  static const gw::TextScreen &nextScreen() {
    step();
    return *display().getText();
  }
};

} // namespace

TEST_F(ScreensTest, AGameFromTitleToTitle) {
  loadResources();
  populateGame();
  expectScreen(nextScreen(), "title");
  pressKey(gw::Keyboard::P);
  expectScreen(nextScreen(), "first-step");
  removeSpawners();
  const std::string wanted = codesOf(row());
  const std::string other = wanted == "Br" ? "Gb" : "Br";
  pin(other + " Gc Bm");
  expectScreen(nextScreen(), "board");
  pin(wanted);
  step(11); // the tag unfolds
  expectScreen(nextScreen(), "sale");
  for (int pins = board()->getPinnedBugs().getCount(); pins < 8; pins++)
    pin(codesOf(row())[0] == 'B' ? "Gr" : "Br"); // of the other kind
  step(60);
  expectScreen(nextScreen(), "game-over");
  while (!menu()->getMenuActive())
    step();
  expectScreen(nextScreen(), "title-again");
}

TEST_F(ScreensTest, EveryRankOnBothSidesOfItsThreshold) {
  loadResources();
  Score &score = *new Score;
  std::string pictures;
  for (const int points :
       {-15, 4,   5,   25,   26,   75,   76,   100,  101,  150,  151,  200,
        201, 250, 251, 325,  326,  400,  401,  475,  476,  550,  551,  700,
        701, 950, 951, 1200, 1201, 1450, 1451, 1700, 1701, 1999, 2000, 123456}) {
    score.updateScore(points - score.getScore());
    const gw::TextScreen &screen = nextScreen();
    const int top = 41, height = 7, width = 40;
    const Lines rows = screen.getRows(0, top, width, height);
    const Lines colors = screen.getColorRows(0, top, width, height);
    for (std::size_t i = 0; i < rows.size(); i++)
      pictures += rows[i] + "|" + colors[i] + "|\n";
  }
  expectText(pictures, "scores");
}
