#pragma once

#include "Object.h"
#include "Vector.h"

#include <SFML/Window/Keyboard.hpp>
#include <SFML/Window/Mouse.hpp>

/// Somebody at mouse and keyboard: an object that posts input events, as a person
/// causes them, on every step. They are handled in the input phase of the same
/// step. Invisible, touches nothing. Derived classes decide what to do.
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
