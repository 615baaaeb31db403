// Two screens that replace each other, with a sprite and a sound. SPACE goes to the
// other one, and so does waiting; Q quits.

#include "DisplayManager.h"
#include "EventKeyboard.h"
#include "EventStep.h"
#include "Game.h"
#include "GameManager.h"
#include "Object.h"
#include "ResourceManager.h"
#include "Sound.h"
#include "WorldManager.h"

namespace {

/// What is shown until its time is over: then it makes way for the next screen.
class Screen : public gw::Object {
public:
  explicit Screen(int new_steps_left) : steps_left(new_steps_left) {
    setCollisionResponse(gw::IGNORE);
  }

  int eventHandler(const gw::Event *p_e) override {
    const auto *p_key = gw::eventAs<gw::EventKeyboard>(p_e, gw::KEYBOARD_EVENT);
    const bool is_pressed = p_key && p_key->getKeyboardAction() == gw::KEY_PRESSED;
    if (is_pressed && p_key->getKey() == gw::Keyboard::Q)
      gw::GameManager::getInstance().setGameOver(true);
    if (p_e->getType() == gw::STEP_EVENT)
      steps_left--;
    if (steps_left == 0 || (is_pressed && p_key->getKey() == gw::Keyboard::SPACE))
      leave();
    return 0;
  }

private:
  virtual void showNext() = 0;

  /// Until the next update we hear events still: leave once only.
  void leave() {
    gw::WorldManager &world = gw::WorldManager::getInstance();
    if (world.isMarkedForDelete(this))
      return;
    world.markForDelete(this);
    showNext();
  }

  int steps_left;
};

class Title : public Screen {
public:
  Title() : Screen(60) {}

  int draw() override {
    return gw::DisplayManager::getInstance().drawString(
        gw::Vector(64, 24), "SPACE starts the rocket", gw::CENTER_JUSTIFIED, gw::YELLOW);
  }

private:
  void showNext() override;
};

class Flight : public Screen {
public:
  Flight() : Screen(90) {
    setSprite("Rocket");
    setPosition(gw::Vector(64, 44));
    setVelocity(gw::Vector(0, -0.5f));
    if (gw::Sound *p_sound = gw::ResourceManager::getInstance().getSound("Start"))
      p_sound->play(false);
  }

private:
  void showNext() override { new Title; }
};

void Title::showNext() {
  new Flight;
}

} // namespace

gw::Game screensGame() {
  gw::Game game;
  game.name = "screens";
  game.loadResources = [] {
    gw::ResourceManager &resources = gw::ResourceManager::getInstance();
    resources.loadSprite("screens/rocket.txt", "Rocket");
    resources.loadSound("screens/start.wav", "Start");
  };
  game.populateWorld = [] { new Title; };
  return game;
}

// A test has a `main` of its own.
#ifndef WITHOUT_MAIN

int main(int argc, char *argv[]) {
  return gw::runGame(screensGame(), argc, argv);
}

#endif
