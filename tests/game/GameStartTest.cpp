#include "GameTest.h"

#include "GameStart.h"

class GameStartTest : public GameTest {};

TEST_F(GameStartTest, PStartsAGameOnceAndTheBoardHearsPinsBeforeTheSequence) {
  startGame();
  const std::vector<std::string> expected = {
      "Border", "GameStart", "Cursor",  "PinBoard", "Score",
      "Slower", "Spawner",   "Spawner", "Spawner",  "Sequence"};
  std::vector<std::string> found = types();
  ASSERT_EQ(found.size(), expected.size() + 1);
  EXPECT_TRUE(isInsectType(found.back())) << "the first row has one target";
  found.pop_back();
  EXPECT_EQ(found, expected);
  pressKey(gw::Keyboard::P);
  EXPECT_EQ(types().size(), expected.size() + 1) << "no second game in the first";
}
