// Balls that bounce off walls, off a pillar and off each other. There is nothing to do in
// it: close the window, or end it with Ctrl-C.

#include "DisplayManager.h"
#include "EventCollision.h"
#include "Game.h"
#include "Object.h"
#include "WorldManager.h"

#include <cmath>
#include <string>

namespace {

/// A block of `#`, size in cells. It never moves, and nothing moves into it: like
/// every new object it is `BLOCK`.
class Wall : public gw::Object {
public:
  Wall(float left, float top, float width, float height) {
    setType("Wall");
    setPosition(gw::Vector(left, top));
    // A character is centred on its position, so the box starts half a cell before.
    setBox(gw::Box(gw::Vector(-0.5f, -0.5f), width, height));
  }

  int draw() override {
    const std::string row(static_cast<std::size_t>(getBox().getHorizontal()), '#');
    for (int y = 0; y < static_cast<int>(getBox().getVertical()); y++)
      gw::DisplayManager::getInstance().drawString(
          getPosition() + gw::Vector(0, static_cast<float>(y)), row, gw::LEFT_JUSTIFIED,
          gw::BLUE);
    return 0;
  }
};

class Ball : public gw::Object {
public:
  Ball(gw::Vector start, gw::Vector velocity, gw::Color new_color) : color(new_color) {
    setType("Ball");
    setPosition(start);
    setVelocity(velocity);
  }

  int eventHandler(const gw::Event *p_e) override {
    const auto *p_hit = gw::eventAs<gw::EventCollision>(p_e, gw::COLLISION_EVENT);
    if (!p_hit || p_hit->getObject1() != this) // only the one that moves bounces
      return 0;
    bounce(p_hit->getPosition());
    return 1;
  }

  int draw() override {
    return gw::DisplayManager::getInstance().drawCh(getPosition(), 'O', color);
  }

private:
  /// Turns away from what is in the way, sideways, up or down, or both.
  void bounce(gw::Vector to) {
    gw::WorldManager &world = gw::WorldManager::getInstance();
    const gw::Vector from = getPosition();
    bool in_x = !world.getCollisions(this, gw::Vector(to.getX(), from.getY())).isEmpty();
    bool in_y = !world.getCollisions(this, gw::Vector(from.getX(), to.getY())).isEmpty();
    if (!in_x && !in_y) // exactly onto a corner
      in_x = in_y = true;
    gw::Vector velocity = getVelocity();
    // Not just the other way: in a corner we hear of two walls.
    if (in_x)
      velocity.setX(std::copysign(velocity.getX(), from.getX() - to.getX()));
    if (in_y)
      velocity.setY(std::copysign(velocity.getY(), from.getY() - to.getY()));
    setVelocity(velocity);
  }

  gw::Color color;
};

} // namespace

gw::Game bounceGame() {
  gw::Game game;
  game.name = "bounce";
  game.populateWorld = [] {
    new Wall(0, 0, 128, 1);
    new Wall(0, 47, 128, 1);
    new Wall(0, 1, 2, 46);
    new Wall(126, 1, 2, 46);
    new Wall(58, 18, 12, 10);
    new Ball(gw::Vector(20, 10), gw::Vector(0.9f, 0.4f), gw::RED);
    new Ball(gw::Vector(90, 30), gw::Vector(-0.6f, 0.5f), gw::YELLOW);
    new Ball(gw::Vector(30, 40), gw::Vector(0.5f, -0.7f), gw::GREEN);
  };
  return game;
}

// A test has a `main` of its own.
#ifndef WITHOUT_MAIN

int main(int argc, char *argv[]) {
  return gw::runGame(bounceGame(), argc, argv);
}

#endif
