#pragma once

#include "Object.h"

/// The start menu, and the keys that hold always: `P` starts a game while the
/// menu is active, `Q` ends the program at any time. There is one for the whole
/// run of the program; it starts the music, which loops from then on.
class GameStart : public gw::Object {
public:
  static constexpr const char *TYPE = "GameStart";

  GameStart();

  /// The title shows, and a game may be started.
  void setMenuActive(bool active) { menuActive = active; }
  bool getMenuActive() const { return menuActive; }

  /// Creates the objects of a game.
  void startGame();

  int eventHandler(const gw::Event *p_e) override;

  /// Shows the title while the menu is active. @return 0, always
  int draw() override;

private:
  bool menuActive = true;
};
