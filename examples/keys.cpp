// Collect coins with the arrow keys; Q quits.

#include "DisplayManager.h"
#include "EventCollision.h"
#include "EventKeyboard.h"
#include "Game.h"
#include "GameManager.h"
#include "Object.h"
#include "Random.h"

#include <string>

namespace {

class Player : public gw::Object {
public:
  Player() {
    setType("Player");
    setPosition(gw::Vector(64, 24));
    setCollisionResponse(gw::OVERLAP);
  }

  int eventHandler(const gw::Event *p_e) override {
    if (const auto *p_key = gw::eventAs<gw::EventKeyboard>(p_e, gw::KEYBOARD_EVENT))
      handleKey(p_key->getKey(), p_key->getKeyboardAction() == gw::KEY_PRESSED);
    else if (p_e->getType() == gw::COLLISION_EVENT) // only coins are in the way
      score++;
    const gw::Vector next = predictPosition();
    if (next.getX() < 0 || next.getX() > 127 || next.getY() < 0 || next.getY() > 47)
      setVelocity(gw::Vector());
    return 0;
  }

  int draw() override {
    const gw::DisplayManager &display = gw::DisplayManager::getInstance();
    display.drawString(gw::Vector(64, 1), "Coins: " + std::to_string(score),
                       gw::CENTER_JUSTIFIED, gw::WHITE);
    return display.drawCh(getPosition(), '@', gw::CYAN);
  }

private:
  /// A held key is one press and one release: we go until it comes up.
  void handleKey(gw::Keyboard::Key key, bool is_pressed) {
    gw::Vector velocity;
    if (key == gw::Keyboard::LEFT_ARROW)
      velocity.setX(-1);
    else if (key == gw::Keyboard::RIGHT_ARROW)
      velocity.setX(1);
    else if (key == gw::Keyboard::UP_ARROW)
      velocity.setY(-0.5f);
    else if (key == gw::Keyboard::DOWN_ARROW)
      velocity.setY(0.5f);
    else if (key == gw::Keyboard::Q)
      gw::GameManager::getInstance().setGameOver(true);
    setVelocity(is_pressed ? velocity : gw::Vector());
  }

  int score = 0;
};

class Coin : public gw::Object {
public:
  Coin() {
    setType("Coin");
    setCollisionResponse(gw::OVERLAP);
    jump();
  }

  int eventHandler(const gw::Event *p_e) override {
    if (p_e->getType() == gw::COLLISION_EVENT)
      jump();
    return 0;
  }

  int draw() override {
    return gw::DisplayManager::getInstance().drawCh(getPosition(), '$', gw::YELLOW);
  }

private:
  void jump() {
    const auto x = static_cast<float>(gw::rand() % 128);
    setPosition(gw::Vector(x, static_cast<float>(gw::rand() % 44 + 4)));
  }
};

} // namespace

gw::Game keysGame() {
  gw::Game game;
  game.name = "keys";
  game.populateWorld = [] {
    new Player;
    for (int i = 0; i < 20; i++)
      new Coin;
  };
  return game;
}

// A test has a `main` of its own.
#ifndef WITHOUT_MAIN

int main(int argc, char *argv[]) {
  return gw::runGame(keysGame(), argc, argv);
}

#endif
