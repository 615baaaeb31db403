#include "RulesTest.h"

#include "GameManager.h"

using GameStartTest = RulesTest;

TEST_F(GameStartTest, PStartsAGameOnceAndTheBoardHearsPinsBeforeTheSequence) {
  startGame();
  const Lines expected = {"Border",  "GameStart", "Cursor",           "PinBoard",
                          "Score",   "Slower",    "Spawner",          "Spawner",
                          "Spawner", "Sequence",  row()[0]->getType()};
  EXPECT_EQ(types(), expected) << "the first row has one target";
  pressKey(gw::Keyboard::P);
  EXPECT_EQ(types(), expected) << "no second game in the first";
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
                        {R, gw::KEY_PRESSED, false, false, false},
                        {Q, gw::KEY_PRESSED, false, false, true},
                        {P, gw::KEY_PRESSED, false, true, false},
                        {P, gw::KEY_PRESSED, true, false, false},
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
}

TEST_F(GameStartTest, EverySoundHasItsFileAndTheMissingDoNotStopTheLoading) {
  Lines found;
  for (const std::string &line : matching("Loading (sound|music)", logOf(loadResources)))
    found.push_back(line.substr(line.find('\'')));
  EXPECT_EQ(found, (Lines{"'GameStart' from file 'tazlet/sounds/game_start.wav'.",
                          "'BugSpawn' from file 'tazlet/sounds/bug_spawn.wav'.",
                          "'ClickPin' from file 'tazlet/sounds/click_pin.wav'.",
                          "'PinBug' from file 'tazlet/sounds/pin_bug.wav'.",
                          "'ClearSequence' from file 'tazlet/sounds/clear_sequence.wav'.",
                          "'GameOver' from file 'tazlet/sounds/game_over.wav'.",
                          "'StartMusic' from file 'tazlet/musics/BlippyTrance.mp3'."}));
}
