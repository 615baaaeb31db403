#pragma once

#include "Event.h"

namespace gw {

/// The type of an `EventKeyboard`.
inline const std::string KEYBOARD_EVENT = "gw::keyboard";

/// Keeps the names of the keys apart from others.
namespace Keyboard {

/// The engine's keys. `InputManager` maps the window library's codes to them.
enum Key : int {
  UNDEFINED_KEY = -1, ///< one that the engine does not know
  /// The key with that name or sign on it. @{
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
  ///@}
};

} // namespace Keyboard

/// What the key did.
enum EventKeyboardAction : int {
  UNDEFINED_KEYBOARD_ACTION = -1, ///< of an event that was given none
  KEY_PRESSED = 0,                ///< went down
  KEY_RELEASED = 1,               ///< came up
};

/// A key went down or came up; every object hears it. A held key is one press.
class EventKeyboard : public Event {
public:
  /// Key and action are undefined.
  EventKeyboard();

  /// Which key it is. @{
  void setKey(Keyboard::Key new_key) { key = new_key; }
  Keyboard::Key getKey() const { return key; } ///@}

  /// What was done with it. @{
  void setKeyboardAction(EventKeyboardAction new_action) { keyboard_action = new_action; }
  EventKeyboardAction getKeyboardAction() const { return keyboard_action; }
  ///@}

private:
  Keyboard::Key key = Keyboard::UNDEFINED_KEY;
  EventKeyboardAction keyboard_action = UNDEFINED_KEYBOARD_ACTION;
};

} // namespace gw
