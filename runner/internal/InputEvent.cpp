#include "internal/InputEvent.h"

#include "DisplayManager.h"
#include "Input.h"

#include <cmath>

namespace gw {

std::optional<InputEvent> toInputEvent(const Event &event, int step) {
  InputEvent input;
  input.step = step;
  if (const auto *p_key = eventAs<EventKeyboard>(&event, KEYBOARD_EVENT)) {
    input.kind = p_key->getKeyboardAction() == KEY_PRESSED ? InputEvent::key_press
                                                           : InputEvent::key_release;
    input.key = p_key->getKey();
    return input;
  }
  const auto *p_mouse = eventAs<EventMouse>(&event, MOUSE_EVENT);
  if (!p_mouse)
    return std::nullopt;
  input.kind = p_mouse->getMouseAction() == MOVED     ? InputEvent::mouse_move
               : p_mouse->getMouseAction() == PRESSED ? InputEvent::mouse_press
                                                      : InputEvent::mouse_release;
  input.button = p_mouse->getMouseButton();
  const Vector pixels = spacesToPixels(p_mouse->getMousePosition());
  input.x = static_cast<int>(std::lround(pixels.getX()));
  input.y = static_cast<int>(std::lround(pixels.getY()));
  return input;
}

void post(const InputEvent &event) {
  const Vector where =
      pixelsToSpaces(Vector(static_cast<float>(event.x), static_cast<float>(event.y)));
  switch (event.kind) {
  case InputEvent::key_press:
    pressKey(event.key);
    break;
  case InputEvent::key_release:
    releaseKey(event.key);
    break;
  case InputEvent::mouse_move:
    moveMouse(where);
    break;
  case InputEvent::mouse_press:
    pressMouse(event.button, where);
    break;
  case InputEvent::mouse_release:
    releaseMouse(event.button, where);
    break;
  }
}

} // namespace gw
