#pragma once

#include "EventKeyboard.h"
#include "EventMouse.h"

#include <optional>

namespace gw {

/// One key or mouse event as something that can be kept.
struct InputEvent {
  enum Kind { key_press, key_release, mouse_move, mouse_press, mouse_release };

  int step = 0; ///< in which it is handled, counted from 0
  Kind kind = mouse_move;
  Keyboard::Key key = Keyboard::UNDEFINED_KEY;          ///< key events
  Mouse::Button button = Mouse::UNDEFINED_MOUSE_BUTTON; ///< mouse presses and releases
  int x = 0;                                            ///< mouse events, in pixels
  int y = 0;                                            ///< mouse events, in pixels
};

/// What the objects hear; nothing for events of other kinds.
std::optional<InputEvent> toInputEvent(const Event &event, int step);

/// Has the objects hear of it in the next step.
void post(const InputEvent &event);

} // namespace gw
