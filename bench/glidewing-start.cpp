/// The game from its start to its first frame, with all that it loads, and its end.
/// Started by bench/table.py in the run directory; needs a display.

#include "GameManager.h"
#include "LogManager.h"
#include "tazlet.h"

int main() {
  gw::GameManager &game = gw::GameManager::getInstance();
  if (game.startUp() != 0)
    return 1;
  gw::LogManager::getInstance().setLogLevel(gw::ALL);
  gw::LogManager::getInstance().setFlush(true);
  loadResources();
  populateGame();
  game.runStep(gw::NEVER_SLEEP);
  game.shutDown();
}
