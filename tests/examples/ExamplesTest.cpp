#include "EngineTest.h"
#include "Screens.h"
#include "TestRun.h"

#include <filesystem>

gw::Game bounceGame();
gw::Game screensGame();

TEST(ExamplesTest, BallsBounceOffWallsOffThePillarAndOffEachOther) {
  gw::TestRun run(bounceGame());
  run.step();
  expectScreen(run.getScreen(), "examples/bounce-start");
  run.step(999);
  expectScreen(run.getScreen(), "examples/bounce-later");
  EXPECT_EQ(matching("ERROR|WARNING", logLines()), Lines{});
}

TEST(ExamplesTest, TitleAndFlightReplaceEachOtherByKeyAndByTime) {
  std::filesystem::create_directory_symlink(GLIDEWING_RUN_DIR "/screens", "screens");
  gw::TestRun run(screensGame());
  run.step();
  expectScreen(run.getScreen(), "examples/screens-title");
  gw::pressKey(gw::Keyboard::SPACE);
  run.step(20);
  expectScreen(run.getScreen(), "examples/screens-flight");
  run.step(71);
  expectScreen(run.getScreen(), "examples/screens-title");
  run.step(59);
  EXPECT_EQ(run.getObjects().getCount(), 1);
  EXPECT_TRUE(run.shows("SPACE starts"));
  run.step();
  EXPECT_FALSE(run.shows("SPACE starts"));
  gw::pressKey(gw::Keyboard::Q);
  run.step();
  EXPECT_TRUE(run.isOver());
  const std::string no_sound_card = "No playback device";
  const Lines complaints = matching("ERROR|WARNING", logLines());
  EXPECT_EQ(complaints, matching(no_sound_card, complaints));
}
