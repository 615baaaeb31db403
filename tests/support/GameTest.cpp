#include "GameTest.h"

#include "Random.h"
#include "tazlet.h"

#include <filesystem>

void GameTest::SetUp() {
  EngineTest::SetUp();
  std::filesystem::remove_all("tazlet"); // of the test before, in the same process
  std::filesystem::create_directory("tazlet");
  std::filesystem::create_directory_symlink(GLIDEWING_RUN_DIR "/tazlet/sprites",
                                            "tazlet/sprites");
  gw::srand(1);
}

void GameTest::startGame() {
  loadResources();
  populateGame();
  pressKey(gw::Keyboard::P);
}

void GameTest::step(int steps) {
  for (int i = 0; i < steps; i++)
    gw::GameManager::getInstance().runStep(gw::NEVER_SLEEP);
}

void GameTest::pressKey(gw::Keyboard::Key key) {
  gw::EventKeyboard event;
  event.setKey(key);
  event.setKeyboardAction(gw::KEY_PRESSED);
  gw::WorldManager::getInstance().onEvent(&event);
}

void GameTest::sendMouse(gw::EventMouseAction action, gw::Mouse::Button button,
                         gw::Vector where) {
  gw::EventMouse event;
  event.setMouseAction(action);
  event.setMouseButton(button);
  event.setMousePosition(where);
  gw::WorldManager::getInstance().onEvent(&event);
}

void GameTest::press(gw::Vector where) {
  sendMouse(gw::PRESSED, gw::Mouse::LEFT, where);
}

int GameTest::count(const std::string &type) {
  return gw::WorldManager::getInstance().getAllObjectsOfType(type).getCount();
}

std::vector<std::string> GameTest::types() {
  std::vector<std::string> found;
  const gw::ObjectList objects = gw::WorldManager::getInstance().getAllObjects();
  found.reserve(static_cast<std::size_t>(objects.getCount()));
  for (int i = 0; i < objects.getCount(); i++)
    found.push_back(objects[i]->getType());
  return found;
}

void GameTest::removeSpawners() {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  const gw::ObjectList spawners = world.getAllObjectsOfType("Spawner");
  for (int i = 0; i < spawners.getCount(); i++)
    world.markForDelete(spawners[i]);
  world.update();
}
