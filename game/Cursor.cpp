#include "Cursor.h"

#include "EventMouse.h"
#include "gameUtility.h"

Cursor::Cursor() {
  setType(TYPE);
  setSprite("NeutralCursor");
  setAltitude(gw::MAX_ALTITUDE);
  setCollisionResponse(gw::IGNORE);
  setPosition(displayCenter());
}

int Cursor::eventHandler(const gw::Event *p_e) {
  const auto *p_mouse = gw::eventAs<gw::EventMouse>(p_e, gw::MOUSE_EVENT);
  if (!p_mouse)
    return 0;
  const gw::EventMouseAction action = p_mouse->getMouseAction();
  const bool is_left = p_mouse->getMouseButton() == gw::Mouse::LEFT;
  if (action == gw::MOVED) {
    setPosition(p_mouse->getMousePosition());
    return 1;
  }
  if (action == gw::PRESSED && is_left) {
    playSound("ClickPin");
    setSprite("ClickedCursor");
    return 1;
  }
  if (action == gw::RELEASED && is_left) {
    setSprite("NeutralCursor");
    return 1;
  }
  return 0;
}
