#include "DotGame.h"

#include <cstdlib>
#include <random>

namespace {

const std::string HEAD = "glidewing-recording 2\ngame dots 3\nseed 5\n";

RunResult replay(const std::string &recording, const std::string &options = "") {
  writeFile("r.txt", recording);
  return runDots("--headless --replay r.txt " + options);
}

/// What a replay that succeeds prints: how many steps it took.
std::string lengthOf(const std::string &recording) {
  const RunResult result = replay(recording);
  EXPECT_EQ(result.status, 0) << result.errors;
  return result.output;
}

} // namespace

TEST(RecordingTest, IsReplayedForAsLongAsItWas) {
  EXPECT_EQ(lengthOf(HEAD + "end 0\n"), "steps 0\n") << "a recording of no steps";
  EXPECT_EQ(lengthOf(HEAD + "7 key-press a\nend 30\n"), "steps 30\n");
  // One that was cut off: to where its next digest would have been.
  EXPECT_EQ(lengthOf(HEAD), "steps 100\n");
  EXPECT_EQ(lengthOf(HEAD + "7 key-press a\n230 key-rel"), "steps 100\n")
      << "a torn line is none";
  EXPECT_EQ(lengthOf(HEAD + "230 key-press space\r\n"), "steps 300\n");
}

TEST(RecordingTest, WhatIsNoneOfThisGameIsRefusedWithPlaceAndReason) {
  const struct {
    std::string content;
    const char *says;
  } cases[] = {
      {"", ":1: the recording is cut short"},
      {"tazlet-recording 1\nseed 5\n",
       ":1: not a recording of this format, which begins with \"glidewing-recording 2\""},
      {"glidewing-recording 2\ngame dots\n", ":2: expected \"game\", its name"},
      {"glidewing-recording 2\ngame other 3\nseed 5\n",
       ": was recorded by another game, other"},
      {"glidewing-recording 2\ngame dots 3\nseed -1\n", ":3: expected \"seed\""},
      {HEAD + "5 key-press\n", ":4: expected one key"},
      {HEAD + "5 key-press 7a\n", ":4: unknown key \"7a\""},
      {HEAD + "5 mouse-move 1 2 3\n", ":4: expected x and y"},
      {HEAD + "5 mouse-press wheel 1 2\n", ":4: unknown button \"wheel\""},
      {HEAD + "5 mouse-press 1 2\n", ":4: expected a button, x and y"},
      {HEAD + "5 mouse-move 1 x\n", ":4: \"x\" is not a number in range"},
      {HEAD + "5 mouse-move 1 99999999999999999999\n", ":4: \"99999"},
      {HEAD + "5 \x1b\x9b\xc3\xa9 1\n", ":4: unknown event \"\\x1b\\x9b\xc3\xa9\""},
      {HEAD + "5 key-press a\n4 key-press a\n", ":5: expected a step, not before"},
      {HEAD + "5 key-press a\nend 5\n", ":5: expected \"end\""},
      {HEAD + "end 5\n5 key-press a\n", ":5: nothing may follow the end"},
      {HEAD + "100 digest 12\n", ":4: expected a digest after a step, 16 digits"},
      {HEAD + "0 digest 0123456789abcdef\n", ":4: expected a digest after a step"},
      {HEAD + "\n", ":4: expected a step"},
      {HEAD + "1 key-press q\nend 9\n", ": the game ended at step 2, which was not"},
      {HEAD + "100 digest 0123456789abcdef\n", ": at step 100 the game is not in the"},
  };
  for (const auto &[content, says] : cases) {
    const RunResult result = replay(content);
    EXPECT_EQ(result.status, 1) << content;
    EXPECT_NE(result.errors.find("r.txt" + std::string(says)), std::string::npos)
        << content << result.errors;
  }
  const RunResult other_version =
      replay("glidewing-recording 2\ngame dots 2\nseed 5\nend 3\n");
  EXPECT_EQ(other_version.status, 0);
  EXPECT_NE(other_version.errors.find("was recorded by version 2; this is 3"),
            std::string::npos);
}

/// GLIDEWING_MUTATIONS says how many; scripts/soak tries more.
TEST(RecordingTest, AnEditedOneIsRefusedInALineOrReplayed) {
  ASSERT_EQ(runDots("--headless --player busy --steps 230 --record good.txt").status, 0);
  const std::string good = readFile("good.txt");
  const char *p_count = std::getenv("GLIDEWING_MUTATIONS");
  const int count = p_count ? std::atoi(p_count) : 100;
  std::mt19937 chance(11); // the same everywhere
  const auto below = [&chance](std::size_t bound) { return chance() % bound; };
  int refused = 0;
  for (int i = 0; i < count; i++) {
    std::string edited = good;
    for (auto edits = below(3) + 1; edits > 0; edits--) {
      const std::size_t at = below(edited.size());
      const std::size_t length = below(40);
      switch (below(5)) {
      case 0:
        edited[at] = static_cast<char>(below(256));
        break;
      case 1:
        edited[at] = "0123456789 \n-"[below(13)];
        break;
      case 2:
        edited.erase(at, length);
        break;
      case 3:
        edited.insert(at, edited.substr(below(edited.size()), length));
        break;
      default:
        edited.resize(at + 1);
      }
    }
    const RunResult result = replay(edited, "--steps 240");
    ASSERT_TRUE(result.status == 0 || result.status == 1) << edited;
    if (result.status == 0)
      continue;
    refused++;
    ASSERT_EQ(result.errors.rfind("dots: ", 0), 0u) << result.errors << edited;
    ASSERT_LE(std::count(result.errors.begin(), result.errors.end(), '\n'), 2) << edited;
  }
  EXPECT_GT(refused, count / 10);
  EXPECT_LT(refused, count);
}
