#pragma once

#include "Object.h"
#include "Vector.h"

#include <SFML/Window/Keyboard.hpp>
#include <SFML/Window/Mouse.hpp>

/// A player other than a person: an object that posts input events in every step, which
/// are handled in the input phase of that step. Invisible, without collisions. Derived
/// classes decide what to do.
class Player : public gw::Object {
public:
  Player();

  int eventHandler(const gw::Event *p_e) override;
  int draw() override { return 0; }

protected:
  /// @param step counted from the first one that the player hears: 0, 1, 2 …
  virtual void play(int step) = 0;

  /// Posts input; positions in pixels.
  void pressKey(sf::Keyboard::Key key);
  void releaseKey(sf::Keyboard::Key key);
  void moveMouse(sf::Vector2i where);
  void pressButton(sf::Mouse::Button button, sf::Vector2i where);
  void releaseButton(sf::Mouse::Button button, sf::Vector2i where);

private:
  int next_step = 0;
};
