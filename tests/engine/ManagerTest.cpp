#include "DisplayManager.h"
#include "EngineTest.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "GameManager.h"
#include "InputManager.h"

#include <cstdlib>

namespace {

int broadcast(const std::string &type) {
  gw::Event event;
  event.setType(type);
  return gw::WorldManager::getInstance().onEvent(&event);
}

} // namespace

TEST_F(EngineTest, ABroadcastIsDeliveredAtOnceToAllWhoWereThereWhenItBegan) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  EXPECT_EQ(broadcast("nobody there"), 0);
  Lines journal;
  const auto add = [&](const std::string &name, const std::function<void()> &on_outer) {
    (new Recorder)->onEvent = [=, &journal](const gw::Event &event) {
      journal.push_back(name + " " + event.getType());
      if (event.getType() == "outer")
        on_outer();
    };
  };
  add("a", [&] {
    add("new", [] {});
    world.markForDelete(world.getAllObjects()[1]); // b hears both all the same
    EXPECT_EQ(broadcast("inner"), 3);
  });
  add("b", [] {});
  EXPECT_EQ(broadcast("outer"), 2);
  EXPECT_EQ(journal, (Lines{"a outer", "a inner", "b inner", "new inner", "b outer"}));
}

TEST(Event, ANewInputEventIsNoKeyAndNoButton) {
  const gw::EventKeyboard key;
  EXPECT_EQ(key.getType(), "gw::keyboard");
  EXPECT_TRUE(key.getKey() == -1 && key.getKeyboardAction() == -1) << "0 is Escape";
  gw::EventMouse mouse;
  EXPECT_EQ(gw::eventAs<gw::EventMouse>(&mouse, "gw::mouse"), &mouse);
  EXPECT_TRUE(mouse.getMouseButton() == -1 && mouse.getMouseAction() == -1);
  mouse.setType(gw::KEYBOARD_EVENT); // handlers go by the type, but do not misread it
  EXPECT_EQ(gw::eventAs<gw::EventMouse>(&mouse, "gw::mouse"), nullptr);
  EXPECT_EQ(gw::eventAs<gw::EventKeyboard>(&mouse, "gw::keyboard"), nullptr);
}

#ifndef _WIN32 // where there is a display always
TEST_F(EngineTest, ManagersReportEveryStartAndStop) {
  unsetenv("DISPLAY"); // there is no game without a window
  gw::LogManager &log = gw::LogManager::getInstance();
  gw::WorldManager &world = gw::WorldManager::getInstance();
  gw::ResourceManager &resources = gw::ResourceManager::getInstance();
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  gw::InputManager &input = gw::InputManager::getInstance();
  gw::GameManager &game = gw::GameManager::getInstance();
  const auto start = [](gw::Manager &manager, int result, const Lines &expected) {
    EXPECT_EQ(logOf([&] { EXPECT_EQ(manager.startUp(), result); }), expected);
    EXPECT_EQ(manager.isStarted(), result == 0) << manager.getType();
  };
  const auto stop = [](gw::Manager &manager, const std::string &expected) {
    EXPECT_EQ(logOf([&] { manager.shutDown(); }), Lines{expected});
    EXPECT_FALSE(manager.isStarted()) << manager.getType();
  };
  start(game, 0, {"INFO: GameManager is already started."});
  EXPECT_EQ(logOf([&] { game.shutDown(); }),
            (Lines{"INFO: GameManager is shutting down.",
                   "INFO: WorldManager is shutting down.",
                   "INFO: ResourceManager is shutting down.",
                   "INFO: InputManager is already shut down.",
                   "INFO: DisplayManager is already shut down.",
                   "INFO: LogManager is shutting down."}));
  ASSERT_EQ(log.startUp(), 0);
  start(log, 0, {"INFO: LogManager is already started."});
  stop(resources, "INFO: ResourceManager is already shut down.");
  start(resources, 0, {"INFO: ResourceManager is started up."});
  start(resources, 0, {"INFO: ResourceManager is already started."});
  stop(world, "INFO: WorldManager is already shut down.");
  start(world, 0, {"INFO: WorldManager is started up."});
  start(world, 0, {"INFO: WorldManager is already started."});
  start(display, -1, {"ERROR: Unable to allocate game window."});
  stop(display, "INFO: DisplayManager is already shut down.");
  start(input, -1,
        {"WARNING: DisplayManager is not started. Starting up InputManager requires "
         "DisplayManager to be started."});
  stop(input, "INFO: InputManager is already shut down.");
  stop(game, "INFO: GameManager is already shut down.");
  EXPECT_TRUE(world.isStarted()) << "a game that was not started stops nothing";
  start(
      game, -1,
      {"INFO: LogManager is already started.", "ERROR: Unable to allocate game window."});
}
#endif
