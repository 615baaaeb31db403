#include "DotGame.h"
#include "ScreenText.h"
#include "TestRun.h"

#include <cstdlib>
#include <regex>

namespace {

/// Leaves the hexadecimal digits out of lines with digests.
std::string withoutDigests(const std::string &output) {
  return std::regex_replace(output, std::regex("digest [0-9a-f]{16}\n"), "digest\n");
}

/// One row of a picture of text, in its frame.
std::string framed(const std::string &row, const std::string &name) {
  return "|" + row + std::string(gw::TextScreen::WIDTH - row.size(), ' ') + "| " + name +
         "\n";
}

} // namespace

TEST(TestRunTest, TurnsInputIntoWhatIsShownAndLogged) {
  gw::TestRun run(dotGame(), 7);
  EXPECT_FALSE(run.shows("(dot)")) << "nothing is shown before the first step";
  run.step();
  EXPECT_EQ(run.getScreen().getRows(3, 2, 5, 1), Lines{"(dot)"});
  EXPECT_EQ(run.getScreen().getColorRows(2, 2, 7, 1), Lines{" rrrrr "});
  gw::pressMouse(gw::Mouse::LEFT, {20.5f, 30.5f}); // halfway: the cell to the left
  EXPECT_TRUE(run.shows("   (dot)")) << "not heard yet";
  run.step();
  EXPECT_EQ(run.getScreen().getRows(20, 30, 5, 1), Lines{"(dot)"});
  ASSERT_EQ(run.getObjects("Dot").getCount(), 1);
  EXPECT_EQ(xy(run.getObjects()[0]->getPosition()), xy({20.5f, 30.5f}));
  gw::pressKey(gw::Keyboard::A);
  run.step(4);
  EXPECT_EQ(dynamic_cast<Dot *>(run.getObjects()[0])->steps_held, 3);
  EXPECT_FALSE(run.isOver());
  gw::pressKey(gw::Keyboard::Q);
  run.step();
  EXPECT_TRUE(run.isOver());
  EXPECT_NE(run.getLog().find("WorldManager is started up."), std::string::npos);
}

TEST(ScreenTextTest, DifferencesAreTwoPicturesOfTheRowsThatDiffer) {
  gw::TextScreen screen;
  screen.drawRow({1, 2}, "abc", gw::GREEN);
  const std::string expected = gw::toText(screen);
  EXPECT_EQ(gw::differencesFrom(expected, screen), "");
  screen.drawRow({2, 2}, "x", gw::RED);
  screen.drawRow({127, 47}, "z", gw::RED);
  const std::string last(gw::TextScreen::WIDTH - 1, ' ');
  EXPECT_EQ(gw::differencesFrom(expected, screen),
            "expected:\n" + framed(" abc", "row 2") + framed("", "row 47") +
                framed(" ggg", "colours of row 2") + framed("", "colours of row 47") +
                "found:\n" + framed(" axc", "row 2") + framed(last + "z", "row 47") +
                framed(" grg", "colours of row 2") +
                framed(last + "r", "colours of row 47"));
}

TEST(RunnerTest, ARunIsRecordedAndReplayedToTheSameStates) {
  const RunResult played =
      runDots("--headless --player busy --seed 5 --steps 250 --digest --record r.txt");
  EXPECT_EQ(played.status, 0) << played.errors;
  EXPECT_EQ(withoutDigests(played.output),
            "step 100 digest\nstep 200 digest\nstep 250 digest\nsteps 250\n");
  EXPECT_EQ(runDots("--headless --replay r.txt --digest").output, played.output);
  EXPECT_NE(runDots("--headless --player busy --seed 6 --steps 250 --digest").output,
            played.output)
      << "the generator is part of the state";
  gw::Game other = dotGame();
  other.addFields = nullptr;
  const RunResult diverged = runDots("--headless --replay r.txt", other);
  EXPECT_EQ(diverged.status, 1);
  EXPECT_EQ(diverged.errors, "dots: " + absolutePath("r.txt") +
                                 ": at step 100 the game is not in the state that was "
                                 "recorded\n");
}

TEST(RunnerTest, PrintsTheScreenAtAStepOrAtTheEnd) {
  const auto screen = [](const std::string &options) {
    const std::string output = runDots("--headless --player busy " + options).output;
    return output.substr(0, output.find("steps"));
  };
  const std::string at_3 = screen("--steps 3 --screen");
  EXPECT_NE(at_3.find("(dot)"), std::string::npos);
  EXPECT_NE(screen("--steps 9 --screen"), at_3);
  EXPECT_EQ(screen("--steps 9 --screen 3"), at_3);
  const RunResult late = runDots("--headless --steps 9 --screen 10");
  EXPECT_EQ(late.status, 1);
  EXPECT_EQ(late.errors, "dots: the game ended at step 9, before that of --screen\n");
  // The box of one cell is around the first character.
  const std::string boxes = runDots("--headless --steps 1 --screen --boxes").output;
  EXPECT_NE(boxes.find("|step 1  "), std::string::npos) << boxes;
  EXPECT_NE(boxes.find("|   +"), std::string::npos) << boxes;
}

TEST(RunnerTest, SaysWhatItCannotDo) {
  const RunResult old_recording = runDots("--headless --steps 1 --record kept.txt");
  ASSERT_EQ(old_recording.status, 0);
  const std::string kept = readFile("kept.txt");
  unsetenv("DISPLAY");
  const struct {
    const char *options;
    int status;
    const char *says;
  } cases[] = {
      {"--window --record kept.txt", 1, "cannot open a window"},
      {"", 1, "dots: there is no display (DISPLAY), and the terminal is not there"},
      {"--terminal", 1, "dots: the terminal is not there"},
      {"--headless --record /dev/full", 1, "dots: /dev/full: cannot be written"},
      {"--headless --record no/folder", 1, "no/folder: cannot be written"},
      {"--headless --replay nothing.txt", 1, "nothing.txt: cannot be read"},
      {"--headless --player nobody", 105, "--player: nobody not in {human,busy}"},
      {"--headless --window", 108, "--window excludes --headless"},
      {"--replay kept.txt --seed 3", 108, "--seed excludes --replay"},
  };
  for (const auto &[options, status, says] : cases) {
    SCOPED_TRACE(options);
    const RunResult result = runDots(options);
    EXPECT_EQ(result.status, status);
    EXPECT_NE(result.errors.find(says), std::string::npos) << result.errors;
  }
  EXPECT_EQ(readFile("kept.txt"), kept) << "when nothing starts it stays";
}
