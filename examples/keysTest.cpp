// A test of keys.cpp, to be copied: it plays the game and looks at its screen.

#include "Object.h"
#include "ScreenText.h"
#include "TestRun.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

gw::Game keysGame();

namespace {

std::string readFile(const std::string &name) {
  std::ifstream file(name);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

} // namespace

TEST(Keys, TheGameBeginsWithTwentyCoinsToCollect) {
  gw::TestRun run(keysGame());
  run.step();
  EXPECT_EQ(gw::differencesFrom(readFile("keys-start.txt"), run.getScreen()), "");
}

TEST(Keys, AHeldKeyMovesThePlayerAndEachCoinInTheWayCounts) {
  gw::TestRun run(keysGame());
  gw::Object *p_player = run.getObjects("Player")[0];
  for (gw::Object *p_coin : run.getObjects("Coin"))
    p_coin->setPosition(p_player->getPosition() + gw::Vector(5, 0));
  gw::pressKey(gw::Keyboard::RIGHT_ARROW);
  run.step(3);
  EXPECT_TRUE(run.shows("Coins: 0"));
  run.step(3);
  EXPECT_TRUE(run.shows("Coins: 20"));
  gw::releaseKey(gw::Keyboard::RIGHT_ARROW);
  run.step(10);
  EXPECT_EQ(p_player->getPosition().getX(), 70);
}

TEST(Keys, QEndsTheGame) {
  gw::TestRun run(keysGame());
  gw::pressKey(gw::Keyboard::Q);
  run.step();
  EXPECT_TRUE(run.isOver());
}
