#include "GameTest.h"

using GameStartTest = GameTest;

TEST_F(GameStartTest, PStartsAGameOnceAndEveryPieceHasItsPlace) {
  const struct {
    const char *type;
    std::pair<float, float> position;
    int altitude;
    const char *picture;
  } pieces[] = {{"Border", {64, 24}, 2, "Border"},
                {"GameStart", {64, 24}, 2, "GameStart"},
                {"Cursor", {64, 24}, 4, "NeutralCursor"},
                {"PinBoard", {116, 24}, 3, "PinBoard"},
                {"Score", {13, 45}, 3, "Score"},
                {"Slower", {0, 0}, 2, ""},
                {"Spawner", {50, 20}, 2, "Spawner"},
                {"Spawner", {30, 32}, 2, "Spawner"},
                {"Spawner", {70, 32}, 2, "Spawner"},
                {"Sequence", {34, 4}, 3, "Sequence"},
                {"Butterfly", {9, 4}, 4, "butterflycolorgreen"}};
  startGame();
  const gw::ObjectList objects = world().getAllObjects();
  ASSERT_EQ(objects.getCount(), 11) << "the board hears of pins before the sequence";
  for (int i = 0; i < 11; i++) {
    const auto &c = pieces[i];
    EXPECT_EQ(objects[i]->getType(), c.type);
    EXPECT_EQ(xy(objects[i]->getPosition()), c.position) << c.type;
    EXPECT_EQ(objects[i]->getAltitude(), c.altitude) << c.type;
    EXPECT_EQ(objects[i]->getAnimation().getSpriteLabel(), c.picture) << c.type;
  }
  pressKey(gw::Keyboard::P);
  EXPECT_EQ(world().getAllObjects().getCount(), 11) << "no second game in the first";
}

TEST_F(GameStartTest, OnlyPressesOfPAndQDoSomething) {
  using namespace gw::Keyboard;
  const struct {
    const char *what;
    Key key;
    gw::EventKeyboardAction action;
    bool in_game, starts, ends;
  } cases[] = {{"P goes up", P, gw::KEY_RELEASED, false, false, false},
               {"Q goes up", Q, gw::KEY_RELEASED, false, false, false},
               {"another key", R, gw::KEY_PRESSED, false, false, false},
               {"Q in the menu", Q, gw::KEY_PRESSED, false, false, true},
               {"P in the menu", P, gw::KEY_PRESSED, false, true, false},
               {"P in a game", P, gw::KEY_PRESSED, true, false, false},
               {"Q in a game", Q, gw::KEY_PRESSED, true, false, true}};
  gw::GameManager &game = gw::GameManager::getInstance();
  new GameStart;
  for (const auto &c : cases) {
    SCOPED_TRACE(c.what);
    gw::EventKeyboard event;
    event.setKey(c.key);
    event.setKeyboardAction(c.action);
    ASSERT_EQ(menu()->getMenuActive(), !c.in_game);
    EXPECT_EQ(logOf([] { EXPECT_EQ(menu()->draw(), 0); }).empty(), c.in_game)
        << "in a game there is no attempt to draw it";
    const std::size_t before = types().size();
    EXPECT_EQ(menu()->eventHandler(&event), 1);
    EXPECT_EQ(types().size() > before, c.starts);
    EXPECT_EQ(game.getGameOver(), c.ends);
    game.setGameOver(false);
  }
}
