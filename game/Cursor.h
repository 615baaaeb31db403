#pragma once

#include "Object.h"

/// The player's pin: follows the mouse, and looks pressed and clicks with the left
/// button. The insects themselves find out whether a press hits them.
class Cursor : public gw::Object {
public:
  static constexpr const char *TYPE = "Cursor";

  /// In the middle of the display, until the mouse moves.
  Cursor();

  int eventHandler(const gw::Event *p_e) override;
};
