#include "RulesTest.h"

using SequenceTest = RulesTest;

TEST_F(SequenceTest, ASeedDecidesTheRowAndPressesDoNotPinIt) {
  loadResources();
  for (unsigned seed = 1; seed <= 40; seed++) {
    gw::srand(seed);
    Dice dice{seed};
    const Lines log = rulesLog([] { (new Sequence)->generateSequence(); });
    const int length = dice.roll() % 6 + 1;
    ASSERT_EQ(row().getCount(), length) << "seed " << seed;
    Lines expected;
    for (int i = 0; i < length; i++) {
      expected.push_back("show " + dice.rollTarget() + " " + std::to_string(i));
      const auto *p_target = dynamic_cast<const Insect *>(row()[i]);
      EXPECT_EQ(xy(p_target->getPosition()), xy({9 + 10 * static_cast<float>(i), 4}));
      EXPECT_EQ(p_target->getAltitude(), 4);
      EXPECT_FALSE(p_target->registersCollisions());
      press(p_target->getPosition());
      EXPECT_FALSE(p_target->getPinned());
      expectPicture(p_target);
    }
    EXPECT_EQ(log, says(expected)) << "seed " << seed;
    clearWorld();
  }
}

TEST_F(SequenceTest, AWrongPinCostsTheProgressAndMayStartTheRowAfresh) {
  const std::pair<const char *, Lines> cases[] = {
      {"Br", {"place Br 1", "check Br 0", "match Br Br 0"}},
      {"Br", {"place Br 2", "check Br 1", "type Br Gb 1", "fail", "match Br Br 0"}},
      {"Bb", {"place Bb 3", "check Bb 1", "type Bb Gb 1", "fail", "color Bb Br 0"}},
      {"Bb", {"place Bb 4", "check Bb 0", "color Bb Br 0", "fail", "color Bb Br 0"}},
      {"Gb", {"place Gb 5", "check Gb 0", "type Gb Br 0", "fail", "type Gb Br 0"}},
      {"Br", {"place Br 6", "check Br 0", "match Br Br 0"}},
      {"Gr", {"place Gr 7", "check Gr 1", "color Gr Gb 1", "fail", "type Gr Br 0"}}};
  new PinBoard;
  makeRows({"Br Gb"});
  for (const auto &[code, expected] : cases)
    EXPECT_EQ(rulesLog([&, pinned_code = code] { pin(pinned_code); }), says(expected));
  EXPECT_EQ(score(), 0);
}

TEST_F(SequenceTest, ACompletedRowIsSoldAndReplaced) {
  seedRows({"Gb"}, false);
  startGame();
  EXPECT_EQ(codesOf(row()), "Gb");
  pin("Bc");
  seedRows({"Gm Br Gm"}, true);
  EXPECT_EQ(rulesLog([&] { pin("Gb"); }),
            says({"place Gb 2", "check Gb 0", "match Gb Gb 0", "sell", "remove Gb 1",
                  "period 350", "period 350", "period 350", "renew", "show Gm 0",
                  "show Br 1", "show Gm 2", "type Bc Gm 0"}));
  EXPECT_EQ(codesOf(row()), "Gm Br Gm");
  EXPECT_EQ(score(), 5);
  EXPECT_EQ(count("SoldTag"), 1);
  removeSpawners(); // and what else is marked
  EXPECT_EQ(pinned(), "Bc");
  EXPECT_EQ(insects(), 3 + 1) << "the new row and the board";
}

TEST_F(SequenceTest, WhatStaysOnTheBoardMayBeginOrCompleteTheNewRow) {
  struct Case {
    std::string before;
    Lines rows; // all but the last are found on the board
    std::string after, next;
    int score;
  };
  const Case cases[] = {
      {"", {"Bm Gm"}, "", "check Gc 0", 0},
      {"Br", {"Gb"}, "Br", "check Gc 0", 0},
      {"Br Gb", {"Br Bc"}, "Br Gb", "check Gc 0", 0},
      {"Br Gb", {"Gb Bg"}, "Br Gb", "check Gc 1", 0},
      {"Br Br", {"Br Gb"}, "Br Br", "check Gc 1", 0},
      {"Br Gb Br", {"Br Gb Br Gm"}, "Br Gb Br", "check Gc 3", 0}, // the oldest start
      {"Gg", {"Gg", "Br"}, "", "check Gc 0", 5},
      {"Bc Gg", {"Gg", "Bc Bm"}, "Bc", "check Gc 1", 5},
      {"Gg Bc", {"Gg", "Br"}, "Gg", "check Gc 0", 5}, // the newest go, not the matching
      {"Bm Gg Bc Br", {"Gg Bc", "Gr"}, "Bm Gg", "check Gc 0", 10},
      {"Br Gg", {"Gg", "Br", "Gm"}, "", "check Gc 0", 10}};
  for (const Case &c : cases) {
    SCOPED_TRACE("\"" + c.before + "\" and " + c.rows.front());
    new PinBoard;
    pin(c.before);
    makeRows(c.rows);
    EXPECT_EQ(codesOf(row()), c.rows.back());
    EXPECT_EQ(pinned(), c.after);
    EXPECT_EQ(score(), c.score);
    EXPECT_EQ(count("SoldTag"), static_cast<int>(c.rows.size()) - 1);
    EXPECT_EQ(rulesLog([&] { pin("Gc"); }).at(1), says({c.next}).front());
    findFirst<Sequence>()->generateSequence(0);
    EXPECT_EQ(rulesLog([&] { pin("Br"); }).size(), 1u) << "an empty row ignores pins";
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
  EXPECT_EQ(rulesLog([&] { pin("Gc"); }),
            says({"place Gc 1", "check Gc 0", "type Gc Br 0", "fail", "type Gc Br 0"}));
  seedRows({"Bm"}, true);
  EXPECT_EQ(rulesLog([&] { pin("Br"); }),
            says({"place Br 2", "check Br 0", "match Br Br 0", "sell", "remove Br 1",
                  "renew", "show Bm 0", "type Gc Bm 0"}));
  EXPECT_EQ(pinned(), "Gc") << "what was sold does not come back";
  EXPECT_EQ(score(), 5);
  step();
  pin("Bc Bc Bc Bc Bc Bc Bc");
  EXPECT_EQ(pinned(), "Gc Bc Bc Bc Bc Bc Bc Bc");
  EXPECT_EQ(count("GameOver"), 1);
}
