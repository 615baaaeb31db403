#pragma once

#include "Event.h"

namespace gw {

inline const std::string KEYBOARD_EVENT = "gw::keyboard";

namespace Keyboard {

/// The engine's keys. `InputManager` maps the window library's codes to them.
enum Key : int {
  UNDEFINED_KEY = -1,
  ESCAPE,
  F1,
  F2,
  F3,
  F4,
  F5,
  F6,
  F7,
  F8,
  F9,
  F10,
  F11,
  F12,
  GRAVE,
  NUM1,
  NUM2,
  NUM3,
  NUM4,
  NUM5,
  NUM6,
  NUM7,
  NUM8,
  NUM9,
  NUM0,
  MINUS, ///< on the number pad
  PLUS,  ///< on the number pad
  TAB,
  A,
  B,
  C,
  D,
  E,
  F,
  G,
  H,
  I,
  J,
  K,
  L,
  M,
  N,
  O,
  P,
  Q,
  R,
  S,
  T,
  U,
  V,
  W,
  X,
  Y,
  Z,
  ENTER,
  PERIOD,
  COMMA,
  SLASH,
  LEFT_SHIFT,
  RIGHT_SHIFT,
  LEFT_CONTROL,
  RIGHT_CONTROL,
  SPACE,
  LEFT_ARROW,
  RIGHT_ARROW,
  UP_ARROW,
  DOWN_ARROW,
  PAUSE,
};

} // namespace Keyboard

enum EventKeyboardAction : int {
  UNDEFINED_KEYBOARD_ACTION = -1,
  KEY_PRESSED = 0,
  KEY_RELEASED = 1,
};

/// A key went down or came up; every object hears it. A held key is one press.
class EventKeyboard : public Event {
public:
  EventKeyboard();

  void setKey(Keyboard::Key new_key) { key = new_key; }
  Keyboard::Key getKey() const { return key; }

  void setKeyboardAction(EventKeyboardAction new_action) { keyboard_action = new_action; }
  EventKeyboardAction getKeyboardAction() const { return keyboard_action; }

private:
  Keyboard::Key key = Keyboard::UNDEFINED_KEY;
  EventKeyboardAction keyboard_action = UNDEFINED_KEYBOARD_ACTION;
};

} // namespace gw
