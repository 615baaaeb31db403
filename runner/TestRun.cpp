#include "TestRun.h"

#include "DisplayManager.h"
#include "GameManager.h"
#include "LogManager.h"
#include "Random.h"
#include "ResourceManager.h"
#include "WorldManager.h"

#include <fstream>
#include <sstream>

namespace gw {

TestRun::TestRun(const Game &game, unsigned seed) {
  LogManager &log = LogManager::getInstance();
  log.setLogLevel(ALL);
  log.setFlush(true);
  GameManager::getInstance().startUpHeadless();
  DisplayManager::getInstance().setTextKept(true);
  srand(seed);
  if (game.loadResources)
    game.loadResources();
  ResourceManager::getInstance().warnOfSharedLabels();
  game.populateWorld();
}

TestRun::~TestRun() {
  GameManager::getInstance().shutDown();
  DisplayManager::getInstance().setTextKept(false);
}

void TestRun::step(int count) {
  for (int i = 0; i < count; i++)
    GameManager::getInstance().runStep(NEVER_SLEEP);
}

bool TestRun::isOver() const {
  return GameManager::getInstance().getGameOver();
}

const TextScreen &TestRun::getScreen() const {
  return *DisplayManager::getInstance().getText();
}

bool TestRun::shows(const std::string &text) const {
  for (const std::string &row : getScreen().getRows())
    if (row.find(text) != std::string::npos)
      return true;
  return false;
}

ObjectList TestRun::getObjects(const std::string &type) const {
  WorldManager &world = WorldManager::getInstance();
  return type.empty() ? world.getAllObjects() : world.getAllObjectsOfType(type);
}

std::string TestRun::getLog() const {
  std::ifstream file(LOGFILE_NAME);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

} // namespace gw
