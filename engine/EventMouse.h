#pragma once

#include "Event.h"
#include "Vector.h"

namespace gw {

inline const std::string MOUSE_EVENT = "gw::mouse";

namespace Mouse {

/// The engine's mouse buttons. `InputManager` maps the window library's codes
/// to them; buttons beyond the third are undefined.
enum Button : int {
  UNDEFINED_MOUSE_BUTTON = -1,
  LEFT = 0,
  RIGHT = 1,
  MIDDLE = 2,
};

} // namespace Mouse

enum EventMouseAction : int {
  UNDEFINED_MOUSE_ACTION = -1,
  PRESSED = 0,
  RELEASED = 1,
  MOVED = 2, ///< the button stays undefined
};

/// A mouse button went down or came up, or the mouse moved; every object hears
/// it.
class EventMouse : public Event {
public:
  EventMouse();

  void setMouseButton(Mouse::Button new_button) { mouse_button = new_button; }
  Mouse::Button getMouseButton() const { return mouse_button; }

  void setMouseAction(EventMouseAction new_action) { mouse_action = new_action; }
  EventMouseAction getMouseAction() const { return mouse_action; }

  /// Where the pointer is, in cells; may lie between cells.
  void setMousePosition(Vector new_position) { mouse_position = new_position; }
  Vector getMousePosition() const { return mouse_position; }

private:
  Mouse::Button mouse_button = Mouse::UNDEFINED_MOUSE_BUTTON;
  EventMouseAction mouse_action = UNDEFINED_MOUSE_ACTION;
  Vector mouse_position;
};

} // namespace gw
