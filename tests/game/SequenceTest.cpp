#include "GameTest.h"

#include <algorithm>

using SequenceTest = GameTest;

TEST_F(SequenceTest, ASeedDecidesTheRowAndPressesDoNotPinIt) {
  loadResources();
  const std::pair<unsigned, const char *> cases[] = {
      {1, "Gb Br Gc Gm Bc Br"}, {2, "Gg Gr Gr Bg"}, {7, "Bb Br"}, {2026, "Bm"}};
  for (const auto &[seed, codes] : cases) {
    gw::srand(seed);
    (new Sequence)->generateSequence();
    EXPECT_EQ(codesOf(row()), codes) << "seed " << seed;
    for (int i = 0; i < row().getCount(); i++) {
      const auto *p_target = dynamic_cast<const Insect *>(row()[i]);
      EXPECT_EQ(xy(p_target->getPosition()), xy({9 + 10 * static_cast<float>(i), 4}));
      EXPECT_EQ(p_target->getAltitude(), 4);
      EXPECT_FALSE(p_target->registersCollisions());
      press(p_target->getPosition());
      EXPECT_FALSE(p_target->getPinned());
      expectPicture(p_target);
    }
    clearWorld();
  }
}

TEST_F(SequenceTest, AWrongPinCostsTheProgressAndMayStartTheRowAfresh) {
  const std::pair<const char *, int> cases[] = {
      {"Br", 1}, {"Br", 1}, {"Bb", 0}, {"Gr", 0}, {"Br", 1}, {"Gr", 0}, {"Bb", 0}};
  new PinBoard;
  makeRows({"Br Gb"});
  std::string expected;
  for (const auto &[code, progress_then] : cases) {
    pin(code);
    expected += (expected.empty() ? "" : " ") + std::string(code);
    EXPECT_EQ(progress(), progress_then) << expected;
  }
  EXPECT_EQ(pinned(), expected);
  EXPECT_EQ(score(), 0);
}

TEST_F(SequenceTest, WhatStaysOnTheBoardMayBeginOrCompleteTheNewRow) {
  struct Case {
    std::string before;
    Lines rows; // all but the last are found on the board
    std::string after;
    int progress, score;
  };
  const Case cases[] = {
      {"", {"Bm Gm"}, "", 0, 0},
      {"Br", {"Gb"}, "Br", 0, 0},
      {"Br Gb", {"Br Bc"}, "Br Gb", 0, 0},
      {"Br Gb", {"Gb Bg"}, "Br Gb", 1, 0},
      {"Br Br", {"Br Gb"}, "Br Br", 1, 0},
      {"Br Gb Br", {"Br Gb Br Gm"}, "Br Gb Br", 3, 0}, // the oldest start
      {"Gg", {"Gg", "Br"}, "", 0, 5},
      {"Bc Gg", {"Gg", "Bc Bm"}, "Bc", 1, 5},
      {"Gg Bc", {"Gg", "Br"}, "Gg", 0, 5}, // the newest go, not the matching
      {"Bm Gg Bc Br", {"Gg Bc", "Gr"}, "Bm Gg", 0, 10},
      {"Br Gg", {"Gg", "Br", "Gm"}, "", 0, 10}};
  for (const Case &c : cases) {
    SCOPED_TRACE("\"" + c.before + "\" and " + c.rows.front());
    new PinBoard;
    pin(c.before);
    makeRows(c.rows);
    EXPECT_EQ(codesOf(row()), c.rows.back());
    EXPECT_EQ(pinned(), c.after);
    EXPECT_EQ(progress(), c.progress);
    EXPECT_EQ(score(), c.score);
    EXPECT_EQ(count("SoldTag"), static_cast<int>(c.rows.size()) - 1);
    world().update();
    EXPECT_EQ(insects(), row().getCount() + board()->getPinnedBugs().getCount());
    findFirst<Sequence>()->generateSequence(0);
    pin("Br");
    EXPECT_EQ(progress(), 0) << "an empty row ignores pins";
    clearWorld();
  }
}

// Old sale tags leave gaps near the beginning of the world's list when they go.
// The last objects move there, and these may be the sequence and its targets.
TEST_F(SequenceTest, TheBoardTakesAPinFirstAndOnceWhereverItIsInTheWorldsList) {
  loadResources();
  populateGame();
  new SoldTag;
  new SoldTag;
  seedRows({"Br"}, false);
  pressKey(gw::Keyboard::P);
  removeSpawners();
  step(100);
  const Lines list = types();
  ASSERT_LT(std::find(list.begin(), list.end(), "Sequence"),
            std::find(list.begin(), list.end(), "PinBoard"))
      << "this is not the case to be tested";
  pin("Gc");
  EXPECT_EQ(pinned(), "Gc");
  seedRows({"Bm"}, true);
  pin("Br");
  EXPECT_EQ(pinned(), "Gc") << "what was sold does not come back";
  EXPECT_EQ(codesOf(row()), "Bm");
  EXPECT_EQ(score(), 5);
  const auto *p_tag = findFirst<SoldTag>();
  EXPECT_EQ(xy(p_tag->getPosition()), xy({10, 10}));
  EXPECT_EQ(p_tag->getAnimation().getSpriteLabel(), "SoldTag");
  step();
  pin("Bc Bc Bc Bc Bc Bc Bc");
  EXPECT_EQ(pinned(), "Gc Bc Bc Bc Bc Bc Bc Bc");
  EXPECT_EQ(count("GameOver"), 1);
}

TEST_F(SequenceTest, DrawsItsPanelAndTheTargetsOnIt) {
  EXPECT_EQ((new Sequence)->draw(), -1) << "without a picture";
  clearWorld();
  loadResources();
  EXPECT_EQ((new Score)->draw(), -1) << "without a window for its text";
  (new Sequence)->generateSequence(1);
  const gw::Animation before = row()[0]->getAnimation();
  for (int i = before.getSprite()->getSlowdown(); i > 0; i--)
    EXPECT_EQ(findFirst<Sequence>()->draw(), 0);
  EXPECT_EQ(row()[0]->getAnimation().getFrameIndex(), before.getFrameIndex() + 1);
}
