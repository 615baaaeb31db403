#include "RulesTest.h"

#include <cmath>
#include <filesystem>

/// Whole games, played by a bot that presses insects.
class PlayTest : public RulesTest {
protected:
  static std::string wanted() {
    return codeOf(row()[findFirst<Sequence>("Sequence")->getCurrentIndex()]);
  }

  /// Presses the first insect of that kind ("" for any) that no other is near.
  void pressOne(const std::string &code) {
    std::vector<const gw::Object *> flying;
    const gw::ObjectList all = world().getAllObjects();
    for (int i = 0; i < all.getCount(); i++)
      if (isInsectType(all[i]->getType()) && all[i]->getSpeed() > 0)
        flying.push_back(all[i]);
    for (const gw::Object *p_chosen : flying) {
      const gw::Vector where = p_chosen->getPosition();
      const auto is_near = [where](const gw::Object *p_o) {
        return std::fabs(p_o->getPosition().getX() - where.getX()) < 6 &&
               std::fabs(p_o->getPosition().getY() - where.getY()) < 4;
      };
      if ((code.empty() || code == codeOf(p_chosen)) &&
          std::count_if(flying.begin(), flying.end(), is_near) == 1)
        return press(where);
    }
  }

  /// From `P` to the return of the menu: sells `rows` rows, then fills the board.
  /// All the while the score is what the insects that went are worth.
  void playGame(int rows) {
    int pins = 0, sold = 0, bonus = 0;
    auto *p_witness = new Recorder;
    p_witness->setCollisionResponse(gw::IGNORE);
    p_witness->onEvent = [&](const gw::Event &event) {
      pins += event.getType() == PIN_EVENT;
      sold += event.getType() == CLEAR_EVENT;
      bonus += event.getType() == SLOW_EVENT ? 15 * count("Bee") + 15 : 0;
      return 0;
    };
    pressKey(gw::Keyboard::P);
    EXPECT_EQ(row().getCount(), 1);
    EXPECT_EQ(findFirst<Spawner>("Spawner")->getSpawnFrequency(), 400);
    for (int i = 0; i < 20000 && count("GameOver") == 0; i++) {
      const int on_board = board()->getPinnedBugs().getCount();
      ASSERT_LT(on_board, 8);
      ASSERT_EQ(score(), 5 * (pins - on_board) + bonus) << "step " << i;
      stepWith([&] { pressOne(bonus == 0 ? "bee" : sold < rows ? wanted() : ""); });
    }
    ASSERT_EQ(count("GameOver"), 1);
    EXPECT_GE(sold, rows);
    world().markForDelete(p_witness);
    step(300);
    EXPECT_EQ(sortedTypes(), (Lines{"Border", "GameStart"}));
  }
};

TEST_F(PlayTest, OneGameAfterTheOtherWithAndWithoutResources) {
  for (const bool has_resources : {true, false}) {
    if (!has_resources)
      std::filesystem::remove_all("tazlet");
    gw::ResourceManager::getInstance().shutDown();
    gw::ResourceManager::getInstance().startUp();
    loadResources();
    populateGame();
    playGame(4);
    playGame(2);
    clearWorld();
  }
}
