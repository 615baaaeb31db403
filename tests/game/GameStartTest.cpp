#include "RulesTest.h"

#include "GameManager.h"

using GameStartTest = RulesTest;

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
  const gw::ObjectList spawners = world().getAllObjectsOfType("Spawner");
  EXPECT_EQ(xy(spawners[0]->getPosition()), xy({50, 20}));
  EXPECT_EQ(xy(spawners[1]->getPosition()), xy({30, 32}));
  EXPECT_EQ(xy(spawners[2]->getPosition()), xy({70, 32}));
}

TEST_F(GameStartTest, OnlyPressesOfPAndQDoSomething) {
  using namespace gw::Keyboard;
  struct Case {
    Key key;
    gw::EventKeyboardAction action;
    bool in_game, starts, ends;
  };
  const Case cases[] = {{P, gw::KEY_RELEASED, false, false, false},
                        {Q, gw::KEY_RELEASED, false, false, false},
                        {O, gw::KEY_PRESSED, false, false, false},
                        {R, gw::KEY_PRESSED, false, false, false},
                        {UNDEFINED_KEY, gw::KEY_PRESSED, false, false, false},
                        {Q, gw::KEY_PRESSED, false, false, true},
                        {P, gw::KEY_PRESSED, false, true, false},
                        {P, gw::KEY_PRESSED, true, false, false},
                        {Q, gw::KEY_RELEASED, true, false, false},
                        {Q, gw::KEY_PRESSED, true, false, true}};
  gw::GameManager &game = gw::GameManager::getInstance();
  new GameStart;
  for (const Case &c : cases) {
    SCOPED_TRACE(&c - cases);
    gw::EventKeyboard event;
    event.setKey(c.key);
    event.setKeyboardAction(c.action);
    ASSERT_EQ(menu()->getMenuActive(), !c.in_game);
    const std::size_t before = types().size();
    EXPECT_EQ(menu()->eventHandler(&event), 1);
    EXPECT_EQ(types().size() > before, c.starts);
    EXPECT_EQ(game.getGameOver(), c.ends);
    game.setGameOver(false);
  }
  EXPECT_EQ(count("GameOver"), 0);
  const gw::EventStep step_event;
  const gw::EventMouse mouse;
  EXPECT_EQ(menu()->eventHandler(&step_event) + menu()->eventHandler(&mouse), 0);
}

// A picture that is drawn goes on to its next frame, one that is hidden does not.
TEST_F(GameStartTest, TheTitleIsHiddenWhileAGameRuns) {
  loadResources();
  populateGame();
  const auto is_drawn = [this] {
    const int frame = menu()->getAnimation().getFrameIndex();
    step(menu()->getAnimation().getSprite()->getSlowdown());
    return menu()->getAnimation().getFrameIndex() != frame;
  };
  EXPECT_TRUE(is_drawn());
  pressKey(gw::Keyboard::P);
  EXPECT_FALSE(is_drawn());
  menu()->setMenuActive(true);
  EXPECT_TRUE(is_drawn());
}
