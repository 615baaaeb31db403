// The engine alone, without the runner: a line of text. Q quits.

#include "DisplayManager.h"
#include "EventKeyboard.h"
#include "GameManager.h"
#include "LogManager.h"
#include "Object.h"

namespace {

class Greeting : public gw::Object {
public:
  int eventHandler(const gw::Event *p_e) override {
    const auto *p_key = gw::eventAs<gw::EventKeyboard>(p_e, gw::KEYBOARD_EVENT);
    if (p_key && p_key->getKey() == gw::Keyboard::Q)
      gw::GameManager::getInstance().setGameOver(true);
    return 0;
  }

  int draw() override {
    return gw::DisplayManager::getInstance().drawString(
        gw::Vector(64, 24), "Hello. Q quits.", gw::CENTER_JUSTIFIED, gw::GREEN);
  }
};

} // namespace

int main() {
  gw::LogManager &log = gw::LogManager::getInstance();
  log.setLogLevel(gw::ALL);
  log.setFlush(true); // or the log of a game that crashes is empty
  gw::GameManager &game = gw::GameManager::getInstance();
  if (game.startUp() != 0)
    return 1;
  new Greeting;
  game.run();
  game.shutDown();
  return 0;
}
