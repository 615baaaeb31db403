#include "InputManager.h"

#include "DisplayManager.h"
#include "GameManager.h"
#include "LogManager.h"
#include "WorldManager.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace gw {

namespace {

/// The engine's key for each of the library's key codes.
constexpr std::array<signed char, sf::Keyboard::KeyCount> KEYS = {
    27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, // A to M
    40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52, // N to Z
    23, 14, 15, 16, 17, 18, 19, 20, 21, 22,             // 0 to 9
    0,                                                  // Escape
    59, 57, -1, -1,                         // left Control, Shift, Alt, System
    60, 58, -1, -1,                         // right Control, Shift, Alt, System
    -1, -1, -1, -1,                         // Menu, brackets, Semicolon
    55, 54, -1, 56, -1, 13,                 // , . ' / \ `
    -1, -1,                                 // Equal, Hyphen
    61, 53, -1, 26,                         // Space, Enter, Backspace, Tab
    -1, -1, -1, -1, -1, -1,                 // Page Up to Delete
    25, 24, -1, -1,                         // + - * / on the number pad
    62, 63, 64, 65,                         // arrows: left, right, up, down
    -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, // digits on the number pad
    1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, -1, -1, -1, // F1 to F15
    66,                                                         // Pause
};

/// The key at that place of a US keyboard, for those that type a character.
sf::Keyboard::Key keyAt(sf::Keyboard::Scancode place) {
  using Key = sf::Keyboard::Key;
  using Place = sf::Keyboard::Scancode;
  constexpr Key OTHERS[] = {Key::Hyphen,     Key::Equal,     Key::LBracket,
                            Key::RBracket,   Key::Backslash, Key::Semicolon,
                            Key::Apostrophe, Key::Grave,     Key::Comma,
                            Key::Period,     Key::Slash};
  const auto from = [place](Place first) {
    return static_cast<int>(place) - static_cast<int>(first);
  };
  if (place >= Place::A && place <= Place::Z)
    return static_cast<Key>(static_cast<int>(Key::A) + from(Place::A));
  if (place >= Place::Num1 && place <= Place::Num9)
    return static_cast<Key>(static_cast<int>(Key::Num1) + from(Place::Num1));
  if (place == Place::Num0)
    return Key::Num0;
  if (place >= Place::Hyphen && place <= Place::Slash)
    return OTHERS[from(Place::Hyphen)];
  return Key::Unknown;
}

/// A key without a code is one of a layout without Latin letters.
template <class KeyEvent> sf::Keyboard::Key keyOf(const KeyEvent &event) {
  return event.code == sf::Keyboard::Key::Unknown ? keyAt(event.scancode) : event.code;
}

/// Events that wait for the next `getInput`.
std::vector<sf::Event> posted;

} // namespace

InputManager::InputManager() {
  setType("InputManager");
}

InputManager &InputManager::getInstance() {
  static InputManager instance;
  return instance;
}

int InputManager::startUp() {
  LogManager &log = LogManager::getInstance();
  if (isStarted()) {
    log.writeLog(INFO, "InputManager is already started.");
    return 0;
  }
  DisplayManager &display = DisplayManager::getInstance();
  if (!display.isStarted()) {
    log.writeLog(WARNING, "DisplayManager is not started. Starting up InputManager "
                          "requires DisplayManager to be started.");
    return -1;
  }
  display.setKeyRepeatEnabled(false);
  Manager::startUp();
  log.writeLog(INFO, "InputManager is started up.");
  return 0;
}

void InputManager::shutDown() {
  LogManager &log = LogManager::getInstance();
  posted.clear();
  if (!isStarted()) {
    log.writeLog(INFO, "InputManager is already shut down.");
    return;
  }
  log.writeLog(INFO, "InputManager is shutting down.");
  DisplayManager::getInstance().setKeyRepeatEnabled(true);
  Manager::shutDown();
}

void InputManager::getInput() const {
  const std::vector<sf::Event> events = std::move(posted);
  posted.clear();
  for (const sf::Event &event : events)
    handle(event);
  while (const std::optional<sf::Event> event = DisplayManager::getInstance().pollEvent())
    handle(*event);
}

void InputManager::postEvent(const sf::Event &event) const {
  posted.push_back(event);
}

void InputManager::handle(const sf::Event &event) const {
  if (event.is<sf::Event::Closed>())
    GameManager::getInstance().setGameOver(true);
  else if (const auto *pressed = event.getIf<sf::Event::KeyPressed>())
    sendKey(keyOf(*pressed), KEY_PRESSED);
  else if (const auto *released = event.getIf<sf::Event::KeyReleased>())
    sendKey(keyOf(*released), KEY_RELEASED);
  else if (const auto *move = event.getIf<sf::Event::MouseMoved>())
    sendMouse(Mouse::UNDEFINED_MOUSE_BUTTON, MOVED, move->position);
  else if (const auto *press = event.getIf<sf::Event::MouseButtonPressed>())
    sendMouse(mapSFMLButtonToGlidewingButton(press->button), PRESSED, press->position);
  else if (const auto *release = event.getIf<sf::Event::MouseButtonReleased>())
    sendMouse(mapSFMLButtonToGlidewingButton(release->button), RELEASED,
              release->position);
}

Keyboard::Key InputManager::mapSFMLKeyToGlidewingKey(sf::Keyboard::Key key) const {
  const auto code = static_cast<unsigned>(key);
  return code < KEYS.size() ? static_cast<Keyboard::Key>(KEYS[code])
                            : Keyboard::UNDEFINED_KEY;
}

bool InputManager::isSFMLKeyValid(sf::Keyboard::Key key) const {
  return mapSFMLKeyToGlidewingKey(key) != Keyboard::UNDEFINED_KEY;
}

Mouse::Button
InputManager::mapSFMLButtonToGlidewingButton(sf::Mouse::Button button) const {
  return isSFMLButtonValid(button) ? static_cast<Mouse::Button>(button)
                                   : Mouse::UNDEFINED_MOUSE_BUTTON;
}

bool InputManager::isSFMLButtonValid(sf::Mouse::Button button) const {
  return static_cast<unsigned>(button) <= Mouse::MIDDLE;
}

void InputManager::sendKey(sf::Keyboard::Key key, EventKeyboardAction action) const {
  EventKeyboard event;
  event.setKey(mapSFMLKeyToGlidewingKey(key));
  event.setKeyboardAction(action);
  WorldManager::getInstance().onEvent(&event);
}

void InputManager::sendMouse(Mouse::Button button, EventMouseAction action,
                             sf::Vector2i position) const {
  EventMouse event;
  event.setMouseButton(button);
  event.setMouseAction(action);
  event.setMousePosition(pixelsToSpaces(
      Vector(static_cast<float>(position.x), static_cast<float>(position.y))));
  WorldManager::getInstance().onEvent(&event);
}

} // namespace gw
