#include "GameManager.h"
#include "DisplayManager.h"
#include "InputManager.h"
#include "WindowTest.h"

TEST(GameManagerTest, StartsAndStopsEverythingOnceInOppositeOrders) {
  gw::GameManager &game = gw::GameManager::getInstance();
  linkFont();
  EXPECT_EQ(game.startUp(), 0);
  EXPECT_EQ(game.startUp(), 0);
  EXPECT_EQ(gw::DisplayManager::getInstance().startUp(), 0);
  EXPECT_EQ(gw::InputManager::getInstance().startUp(), 0);
  EXPECT_FALSE(game.getGameOver());
  game.shutDown();
  EXPECT_TRUE(game.getGameOver());
  EXPECT_EQ(
      logLines(),
      (std::vector<std::string>{
          "INFO: LogManager is started up.", "INFO: DisplayManager is started up.",
          "INFO: InputManager is started up.", "INFO: ResourceManager is started up.",
          "INFO: WorldManager is started up.", "INFO: GameManager is started up.",
          "INFO: GameManager is already started.",
          "INFO: DisplayManager is already started.",
          "INFO: InputManager is already started.", "INFO: GameManager is shutting down.",
          "INFO: WorldManager is shutting down.",
          "INFO: ResourceManager is shutting down.",
          "INFO: InputManager is shutting down.",
          "INFO: DisplayManager is shutting down.",
          "INFO: LogManager is shutting down."}));
}
