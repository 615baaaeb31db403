#include "GameTest.h"

#include <filesystem>

class GameOverTest : public GameTest {
protected:
  /// A game without spawners, with 7 insects on the board, and a blue glidewing
  /// wanted.
  void playToTheLastSlot() {
    seedRows({"Gb"}, false);
    startGame();
    removeSpawners();
    pin("Br Br Br Br Br Br Br");
  }

  /// Steps that the picture takes to play through once.
  static int pictureSteps() {
    const gw::Sprite *p_sprite = gw::ResourceManager::getInstance().getSprite("GameOver");
    return p_sprite->getFrameCount() * p_sprite->getSlowdown();
  }
};

TEST_F(GameOverTest, PlayStopsAtOnceAndTheRestGoesWhenThePictureHasPlayed) {
  seedRows({"Gb"}, false);
  startGame();
  const char *codes[] = {"Br", "Gr", "Bg", "Gg", "Bm", "Gm", "Bc", "Gc"};
  for (int i = 0; i < 8; i++)
    add(codes[i], {10 + 12 * static_cast<float>(i), 20});
  add("Br", {20, 40});
  add("bee", {60, 40});
  press({60, 40}); // the slower counts
  world().update();
  add("bee", {60, 40});
  for (int i = 7; i > 0; i--) // not the order of the world's list
    press({10 + 12 * static_cast<float>(i), 20});
  press(gw::Vector(10, 20));
  EXPECT_EQ(xy(findFirst<GameOver>()->getPosition()), xy({51.2f, 24}));
  EXPECT_GE(findFirst<Slower>()->getSlowCountdown(), 0);
  world().update(); // what the same step does after its input
  for (int i = 1; i < pictureSteps(); i++) {
    step();
    pressKey(gw::Keyboard::P);
    ASSERT_FALSE(menu()->getMenuActive());
    ASSERT_EQ(insects(), 8) << "step " << i;
  }
  EXPECT_EQ(matching("^[^BG]|Border|Game", sortedTypes()),
            (Lines{"Border", "GameOver", "GameStart", "PinBoard", "Score", "Slower"}));
  EXPECT_EQ(findFirst<Slower>()->getSlowCountdown(), -1) << "it has counted on";
  step();
  EXPECT_EQ(sortedTypes(), (Lines{"Border", "GameStart"}));
  EXPECT_TRUE(menu()->getMenuActive());
}

TEST_F(GameOverTest, WithoutResourcesTheNextStepEndsTheGameAndASaleTagOutlivesIt) {
  std::filesystem::remove_all("tazlet");
  playToTheLastSlot();
  pin("Gb");
  EXPECT_FALSE(menu()->getMenuActive());
  EXPECT_EQ(findFirst<GameOver>()->draw(), 0) << "with nothing to be drawn";
  step();
  EXPECT_TRUE(menu()->getMenuActive());
  EXPECT_EQ(sortedTypes(), (Lines{"Border", "GameStart", "SoldTag"}));
  pressKey(gw::Keyboard::P);
  EXPECT_EQ(score(), 0);
  EXPECT_EQ(row().getCount(), 1);
  EXPECT_EQ(pinned(), "");
  EXPECT_EQ(findFirst<Spawner>()->getSpawnFrequency(), 400);
  step(98);
  EXPECT_EQ(count("SoldTag"), 1) << "in its 99th step";
  step();
  EXPECT_EQ(count("SoldTag"), 0);
}

TEST_F(GameOverTest, ThePinThatFillsTheBoardStillSellsTheRowButTheBoardKeepsItsInsects) {
  playToTheLastSlot();
  seedRows({"Gc Gm Bg"}, true);
  pin("Gb");
  EXPECT_EQ(score(), 5) << "a full board pays, too";
  EXPECT_EQ(count("SoldTag"), 1);
  step(pictureSteps() - 1);
  EXPECT_EQ(count("GameOver"), 1);
  EXPECT_EQ(insects(), 8 + 3) << "the new row came too late to go at once";
  EXPECT_EQ(pinned(), "Br Br Br Br Br Br Br Gb");
  step();
  EXPECT_EQ(sortedTypes(), (Lines{"Border", "GameStart"}));
}

// The old game's objects are marked, but still there.
TEST_F(GameOverTest, AGameThatStartsAsThePictureEndsKnowsNothingOfTheOldOne) {
  playToTheLastSlot();
  pin("Br");
  step(pictureSteps() - 1);
  send(gw::EventStep(0));
  seedRows({"Br"}, false); // what the old board is full of
  pressKey(gw::Keyboard::P);
  world().update();
  EXPECT_EQ(score(), 0);
  EXPECT_EQ(codesOf(row()), "Br");
  EXPECT_EQ(count("SoldTag"), 0);
  EXPECT_EQ(insects(), 1);
}

// The board would keep a pointer to the second insect, which the end of the game
// has already marked.
TEST_F(GameOverTest, ThePressThatFillsTheBoardPinsNothingElse) {
  playToTheLastSlot();
  add("Gg");
  EXPECT_FALSE(pin("Bg")->getPinned());
  EXPECT_EQ(pinned(), "Br Br Br Br Br Br Br Gg");
  step();
  EXPECT_EQ(insects(), 8);
}
