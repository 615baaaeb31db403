#pragma once

#include "Event.h"
#include "Vector.h"

namespace gw {

/// The type of an `EventMouse`.
inline const std::string MOUSE_EVENT = "gw::mouse";

/// Keeps the names of the buttons apart from others.
namespace Mouse {

/// The engine's mouse buttons. `InputManager` maps the window library's codes
/// to them; buttons beyond the third are undefined.
enum Button : int {
  UNDEFINED_MOUSE_BUTTON = -1, ///< another one, or none
  LEFT = 0,                    ///< the first
  RIGHT = 1,                   ///< the second
  MIDDLE = 2,                  ///< the third, often the wheel
};

} // namespace Mouse

/// What the mouse did.
enum EventMouseAction : int {
  UNDEFINED_MOUSE_ACTION = -1, ///< of an event that was given none
  PRESSED = 0,                 ///< a button went down
  RELEASED = 1,                ///< a button came up
  MOVED = 2,                   ///< the button stays undefined
};

/// A mouse button went down or came up, or the mouse moved; every object hears
/// it.
class EventMouse : public Event {
public:
  /// Button and action are undefined, the position is (0, 0).
  EventMouse();

  /// Which button it is. @{
  void setMouseButton(Mouse::Button new_button) { mouse_button = new_button; }
  Mouse::Button getMouseButton() const { return mouse_button; } ///@}

  /// What was done with it. @{
  void setMouseAction(EventMouseAction new_action) { mouse_action = new_action; }
  EventMouseAction getMouseAction() const { return mouse_action; } ///@}

  /// Where the pointer is, in cells; may lie between cells. @{
  void setMousePosition(Vector new_position) { mouse_position = new_position; }
  Vector getMousePosition() const { return mouse_position; } ///@}

private:
  Mouse::Button mouse_button = Mouse::UNDEFINED_MOUSE_BUTTON;
  EventMouseAction mouse_action = UNDEFINED_MOUSE_ACTION;
  Vector mouse_position;
};

} // namespace gw
