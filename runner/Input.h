#pragma once

#include "EventKeyboard.h"
#include "EventMouse.h"
#include "Vector.h"

namespace gw {

/// @file
/// Input that does not come from a person: for players and tests. The objects hear of it
/// in the next step, in the order of the calls, as if a window had delivered it.

/// A key goes down or comes up. All keys that the engine does not know are alike. @{
void pressKey(Keyboard::Key key);
void releaseKey(Keyboard::Key key); ///@}

/// The pointer goes to `where`, or is there while a button goes down or comes up. In
/// cells; a pointer stands on whole pixels, so the nearest one counts. @{
void moveMouse(Vector where);
void pressMouse(Mouse::Button button, Vector where);
void releaseMouse(Mouse::Button button, Vector where); ///@}

} // namespace gw
