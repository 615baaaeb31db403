#include "InputManager.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "GameManager.h"
#include "WindowTest.h"

#include <chrono>
#include <cstdlib>
#include <sstream>
#include <thread>

namespace {

std::string describe(const gw::Event &event) {
  std::ostringstream text;
  if (const auto *p_key = gw::eventAs<gw::EventKeyboard>(&event, gw::KEYBOARD_EVENT))
    text << (p_key->getKeyboardAction() == gw::KEY_PRESSED ? "key down " : "key up ")
         << p_key->getKey();
  if (const auto *p_mouse = gw::eventAs<gw::EventMouse>(&event, gw::MOUSE_EVENT)) {
    const char *const actions[] = {"press ", "release ", "move "};
    const auto [x, y] = xy(p_mouse->getMousePosition());
    text << actions[p_mouse->getMouseAction()] << p_mouse->getMouseButton() << " at " << x
         << ", " << y;
  }
  return text.str();
}

/// Real keys and pointer: the input manager is started, and the pointer is over the
/// window.
class InputManagerTest : public WindowTest {
protected:
  gw::InputManager &input = gw::InputManager::getInstance();
  Lines heard; ///< by an object in the world

  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_EQ(input.startUp(), 0);
    (new Recorder)->onEvent = [this](const gw::Event &event) {
      heard.push_back(describe(event));
    };
    act("xdotool mousemove 0 0 mousemove --window $W 500 400");
    receive(1);
    heard.clear();
  }

  void TearDown() override {
    input.shutDown();
    WindowTest::TearDown();
  }

  /// Runs a command of the shell, in which $W is the window. Whatever it sends has
  /// reached the window when it returns.
  void act(const std::string &command) {
    const auto number = gw::DisplayManager::getInstance().getWindow()->getNativeHandle();
    ASSERT_EQ(std::system(("W=" + std::to_string(number) + "; " + command).c_str()), 0)
        << command;
  }

  /// Takes input until `count` events were heard, or for some seconds.
  /// @return how many times it was taken
  int receive(std::size_t count) {
    constexpr int PATIENCE = 500;
    int times = 0;
    do {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      input.getInput();
    } while (++times < PATIENCE && heard.size() < count);
    return times;
  }
};

} // namespace

TEST_F(InputManagerTest, KeysAndPointerBecomeEventsInTheirOrder) {
  const auto expect = [this](const std::string &command, const Lines &expected) {
    heard.clear();
    act("xdotool " + command);
    receive(expected.size());
    EXPECT_EQ(heard, expected) << command;
  };
  expect("key p key BackSpace", {"key down 42", "key up 42", "key down -1", "key up -1"});
  expect("mousemove --window $W 100 40", {"move -1 at 12.5, 2.5"});
  expect("mousemove --window $W 1023 767", {"move -1 at 127.875, 47.9375"});
  expect("mousemove --window $W 4 8 click 2 click 3",
         {"move -1 at 0.5, 0.5", "press 2 at 0.5, 0.5", "release 2 at 0.5, 0.5",
          "press 1 at 0.5, 0.5", "release 1 at 0.5, 0.5"});
  expect("click 8", {"press -1 at 0.5, 0.5", "release -1 at 0.5, 0.5"});
  expect("click 4 click 5 key q", {"key down 43", "key up 43"});
  expect("windowmove $W 0 0 windowsize --sync $W 1280 960 mousemove --window $W 640 481",
         {"move -1 at 64, 24"});
  expect("mousemove --window $W 1279 959", {"move -1 at 127.875, 47.9375"});
  expect("windowsize --sync $W 1024 768 mousemove --window $W 4 8",
         {"move -1 at 0.5, 0.5"});
  act("setxkbmap ru"); // without Latin letters; the keys at the places of P, Q and [
  expect("key 33 key 24 key 34", {"key down 42", "key up 42", "key down 43", "key up 43",
                                  "key down -1", "key up -1"});
  act("setxkbmap us");
  expect("mousedown 1 keydown p key q mousemove --window $W 0 0 keyup p mouseup 1",
         {"press 0 at 0.5, 0.5", "key down 42", "key down 43", "key up 43",
          "move -1 at 0, 0", "key up 42", "release 0 at 0, 0"});
}

// How long the window system takes to repeat a key is measured, not assumed.
TEST_F(InputManagerTest, AHeldKeyIsOnePressWhileTheManagerIsStarted) {
  const auto release = [&] {
    act("xdotool keyup p");
    receive(heard.size() + 1);
  };
  input.shutDown();
  act("xdotool keydown p");
  const int times = receive(4);
  release();
  ASSERT_GE(heard.size(), 5u) << "without the manager the key repeats";
  ASSERT_EQ(heard[3], "key down 42");

  ASSERT_EQ(input.startUp(), 0);
  heard.clear();
  act("xdotool keydown p");
  for (int i = 0; i < 2 * times; i++)
    receive(0);
  release();
  EXPECT_EQ(heard, (Lines{"key down 42", "key up 42"}));
}

TEST_F(InputManagerTest, ClosingTheWindowEndsTheGameAfterTheEventsThatWaitBehindIt) {
  gw::GameManager &game = gw::GameManager::getInstance();
  game.setGameOver(false);
  act("xdotool key p && " GLIDEWING_CLOSE_WINDOW " $W && xdotool key q");
  input.getInput();
  EXPECT_TRUE(game.getGameOver());
  EXPECT_EQ(heard, (Lines{"key down 42", "key up 42", "key down 43", "key up 43"}));
}
