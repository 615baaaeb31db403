#include "Player.h"

#include "EventStep.h"
#include "InputManager.h"

#include <SFML/Window/Event.hpp>

namespace {

void post(const sf::Event &event) {
  gw::InputManager::getInstance().postEvent(event);
}

} // namespace

Player::Player() {
  setType("Player");
  setCollisionResponse(gw::IGNORE);
}

int Player::eventHandler(const gw::Event *p_e) {
  if (p_e->getType() != gw::STEP_EVENT)
    return 0;
  play(next_step++);
  return 1;
}

void Player::pressKey(sf::Keyboard::Key key) {
  post(sf::Event::KeyPressed{key, sf::Keyboard::Scancode::Unknown});
}

void Player::releaseKey(sf::Keyboard::Key key) {
  post(sf::Event::KeyReleased{key, sf::Keyboard::Scancode::Unknown});
}

void Player::moveMouse(sf::Vector2i where) {
  post(sf::Event::MouseMoved{where});
}

void Player::pressButton(sf::Mouse::Button button, sf::Vector2i where) {
  post(sf::Event::MouseButtonPressed{button, where});
}

void Player::releaseButton(sf::Mouse::Button button, sf::Vector2i where) {
  post(sf::Event::MouseButtonReleased{button, where});
}
