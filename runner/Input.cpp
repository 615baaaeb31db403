#include "Input.h"

#include "DisplayManager.h"
#include "InputManager.h"

#include <SFML/Window/Event.hpp>

#include <algorithm>
#include <cmath>

namespace gw {

namespace {

const InputManager &input() {
  return InputManager::getInstance();
}

int toPixel(float pixels) {
  constexpr float LIMIT = 1000000; // what no display has
  return static_cast<int>(std::lround(std::clamp(pixels, -LIMIT, LIMIT)));
}

sf::Vector2i toPixels(Vector cells) {
  const Vector pixels = spacesToPixels(cells);
  return {toPixel(pixels.getX()), toPixel(pixels.getY())};
}

} // namespace

void pressKey(Keyboard::Key key) {
  input().postEvent(sf::Event::KeyPressed{input().mapGlidewingKeyToSFMLKey(key),
                                          sf::Keyboard::Scancode::Unknown});
}

void releaseKey(Keyboard::Key key) {
  input().postEvent(sf::Event::KeyReleased{input().mapGlidewingKeyToSFMLKey(key),
                                           sf::Keyboard::Scancode::Unknown});
}

void moveMouse(Vector where) {
  input().postEvent(sf::Event::MouseMoved{toPixels(where)});
}

void pressMouse(Mouse::Button button, Vector where) {
  input().postEvent(sf::Event::MouseButtonPressed{
      input().mapGlidewingButtonToSFMLButton(button), toPixels(where)});
}

void releaseMouse(Mouse::Button button, Vector where) {
  input().postEvent(sf::Event::MouseButtonReleased{
      input().mapGlidewingButtonToSFMLButton(button), toPixels(where)});
}

} // namespace gw
