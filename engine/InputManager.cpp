#include "InputManager.h"

#include "DisplayManager.h"
#include "GameManager.h"
#include "LogManager.h"
#include "WorldManager.h"

#include <SFML/Window/Event.hpp>

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace gw {

namespace {

struct KeyPair {
  sf::Keyboard::Key library;
  Keyboard::Key engine;
};

/// Every key that the engine knows, in its order. All others are undefined.
constexpr KeyPair KEY_PAIRS[] = {
    {sf::Keyboard::Key::Escape, Keyboard::ESCAPE},
    {sf::Keyboard::Key::F1, Keyboard::F1},
    {sf::Keyboard::Key::F2, Keyboard::F2},
    {sf::Keyboard::Key::F3, Keyboard::F3},
    {sf::Keyboard::Key::F4, Keyboard::F4},
    {sf::Keyboard::Key::F5, Keyboard::F5},
    {sf::Keyboard::Key::F6, Keyboard::F6},
    {sf::Keyboard::Key::F7, Keyboard::F7},
    {sf::Keyboard::Key::F8, Keyboard::F8},
    {sf::Keyboard::Key::F9, Keyboard::F9},
    {sf::Keyboard::Key::F10, Keyboard::F10},
    {sf::Keyboard::Key::F11, Keyboard::F11},
    {sf::Keyboard::Key::F12, Keyboard::F12},
    {sf::Keyboard::Key::Grave, Keyboard::GRAVE},
    {sf::Keyboard::Key::Num1, Keyboard::NUM1},
    {sf::Keyboard::Key::Num2, Keyboard::NUM2},
    {sf::Keyboard::Key::Num3, Keyboard::NUM3},
    {sf::Keyboard::Key::Num4, Keyboard::NUM4},
    {sf::Keyboard::Key::Num5, Keyboard::NUM5},
    {sf::Keyboard::Key::Num6, Keyboard::NUM6},
    {sf::Keyboard::Key::Num7, Keyboard::NUM7},
    {sf::Keyboard::Key::Num8, Keyboard::NUM8},
    {sf::Keyboard::Key::Num9, Keyboard::NUM9},
    {sf::Keyboard::Key::Num0, Keyboard::NUM0},
    {sf::Keyboard::Key::Subtract, Keyboard::MINUS},
    {sf::Keyboard::Key::Add, Keyboard::PLUS},
    {sf::Keyboard::Key::Tab, Keyboard::TAB},
    {sf::Keyboard::Key::A, Keyboard::A},
    {sf::Keyboard::Key::B, Keyboard::B},
    {sf::Keyboard::Key::C, Keyboard::C},
    {sf::Keyboard::Key::D, Keyboard::D},
    {sf::Keyboard::Key::E, Keyboard::E},
    {sf::Keyboard::Key::F, Keyboard::F},
    {sf::Keyboard::Key::G, Keyboard::G},
    {sf::Keyboard::Key::H, Keyboard::H},
    {sf::Keyboard::Key::I, Keyboard::I},
    {sf::Keyboard::Key::J, Keyboard::J},
    {sf::Keyboard::Key::K, Keyboard::K},
    {sf::Keyboard::Key::L, Keyboard::L},
    {sf::Keyboard::Key::M, Keyboard::M},
    {sf::Keyboard::Key::N, Keyboard::N},
    {sf::Keyboard::Key::O, Keyboard::O},
    {sf::Keyboard::Key::P, Keyboard::P},
    {sf::Keyboard::Key::Q, Keyboard::Q},
    {sf::Keyboard::Key::R, Keyboard::R},
    {sf::Keyboard::Key::S, Keyboard::S},
    {sf::Keyboard::Key::T, Keyboard::T},
    {sf::Keyboard::Key::U, Keyboard::U},
    {sf::Keyboard::Key::V, Keyboard::V},
    {sf::Keyboard::Key::W, Keyboard::W},
    {sf::Keyboard::Key::X, Keyboard::X},
    {sf::Keyboard::Key::Y, Keyboard::Y},
    {sf::Keyboard::Key::Z, Keyboard::Z},
    {sf::Keyboard::Key::Enter, Keyboard::ENTER},
    {sf::Keyboard::Key::Period, Keyboard::PERIOD},
    {sf::Keyboard::Key::Comma, Keyboard::COMMA},
    {sf::Keyboard::Key::Slash, Keyboard::SLASH},
    {sf::Keyboard::Key::LShift, Keyboard::LEFT_SHIFT},
    {sf::Keyboard::Key::RShift, Keyboard::RIGHT_SHIFT},
    {sf::Keyboard::Key::LControl, Keyboard::LEFT_CONTROL},
    {sf::Keyboard::Key::RControl, Keyboard::RIGHT_CONTROL},
    {sf::Keyboard::Key::Space, Keyboard::SPACE},
    {sf::Keyboard::Key::Left, Keyboard::LEFT_ARROW},
    {sf::Keyboard::Key::Right, Keyboard::RIGHT_ARROW},
    {sf::Keyboard::Key::Up, Keyboard::UP_ARROW},
    {sf::Keyboard::Key::Down, Keyboard::DOWN_ARROW},
    {sf::Keyboard::Key::Pause, Keyboard::PAUSE},
};

constexpr bool hasEveryKeyInOrder() {
  int next = Keyboard::ESCAPE;
  for (const KeyPair &pair : KEY_PAIRS)
    if (pair.engine != next++)
      return false;
  return next == Keyboard::PAUSE + 1;
}
static_assert(hasEveryKeyInOrder(), "a key of the engine is missing or out of its place");

/// The same by the library's key code.
using KeyTable = std::array<Keyboard::Key, sf::Keyboard::KeyCount>;

constexpr KeyTable makeKeyTable() {
  KeyTable table{};
  for (Keyboard::Key &key : table)
    key = Keyboard::UNDEFINED_KEY;
  for (const KeyPair &pair : KEY_PAIRS)
    table[static_cast<std::size_t>(pair.library)] = pair.engine;
  return table;
}

constexpr KeyTable KEYS = makeKeyTable();

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

EventKeyboard makeKeyEvent(Keyboard::Key key, EventKeyboardAction action) {
  EventKeyboard event;
  event.setKey(key);
  event.setKeyboardAction(action);
  return event;
}

EventMouse makeMouseEvent(Mouse::Button button, EventMouseAction action,
                          sf::Vector2i pixels) {
  EventMouse event;
  event.setMouseButton(button);
  event.setMouseAction(action);
  event.setMousePosition(
      pixelsToSpaces(Vector(static_cast<float>(pixels.x), static_cast<float>(pixels.y))));
  return event;
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
    handle(event, true);
  while (const std::optional<sf::Event> event = DisplayManager::getInstance().pollEvent())
    handle(*event, false);
}

void InputManager::postEvent(const sf::Event &event) const {
  posted.push_back(event);
}

void InputManager::handle(const sf::Event &event, bool is_posted) const {
  if (event.is<sf::Event::Closed>())
    GameManager::getInstance().setGameOver(true);
  else if (const auto *pressed = event.getIf<sf::Event::KeyPressed>())
    send(makeKeyEvent(mapSFMLKeyToGlidewingKey(keyOf(*pressed)), KEY_PRESSED), is_posted);
  else if (const auto *released = event.getIf<sf::Event::KeyReleased>())
    send(makeKeyEvent(mapSFMLKeyToGlidewingKey(keyOf(*released)), KEY_RELEASED),
         is_posted);
  else if (const auto *move = event.getIf<sf::Event::MouseMoved>())
    send(makeMouseEvent(Mouse::UNDEFINED_MOUSE_BUTTON, MOVED, move->position), is_posted);
  else if (const auto *press = event.getIf<sf::Event::MouseButtonPressed>())
    send(makeMouseEvent(mapSFMLButtonToGlidewingButton(press->button), PRESSED,
                        press->position),
         is_posted);
  else if (const auto *release = event.getIf<sf::Event::MouseButtonReleased>())
    send(makeMouseEvent(mapSFMLButtonToGlidewingButton(release->button), RELEASED,
                        release->position),
         is_posted);
}

void InputManager::send(const Event &event, bool is_posted) const {
  if (!filter || filter(event, is_posted))
    WorldManager::getInstance().onEvent(&event);
}

Keyboard::Key InputManager::mapSFMLKeyToGlidewingKey(sf::Keyboard::Key key) const {
  const auto code = static_cast<unsigned>(key);
  return code < KEYS.size() ? KEYS[code] : Keyboard::UNDEFINED_KEY;
}

sf::Keyboard::Key InputManager::mapGlidewingKeyToSFMLKey(Keyboard::Key key) const {
  const auto index = static_cast<std::size_t>(key); // the pairs are in the engine's order
  return index < std::size(KEY_PAIRS) ? KEY_PAIRS[index].library
                                      : sf::Keyboard::Key::Unknown;
}

sf::Mouse::Button
InputManager::mapGlidewingButtonToSFMLButton(Mouse::Button button) const {
  return button == Mouse::UNDEFINED_MOUSE_BUTTON ? sf::Mouse::Button::Extra1
                                                 : static_cast<sf::Mouse::Button>(button);
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

} // namespace gw
