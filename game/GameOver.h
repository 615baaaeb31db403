#pragma once

#include "Object.h"

/// Ends a game in two stages. First the cursor, the spawners, the sequence and every
/// insect that is not on the board go. When the picture has played through once, the rest
/// goes, and the start menu comes back. Created by the pin board when its last slot is
/// filled.
class GameOver : public gw::Object {
public:
  static constexpr const char *TYPE = "GameOver";

  /// Runs the first stage.
  GameOver();

  /// The first stage.
  void deleteGameObjects();

  /// Counts down to the second stage.
  int eventHandler(const gw::Event *p_e) override;

  /// Steps until the second stage.
  int getTimeToLive() const { return timeToLive; }

  /// @return 0, always
  int draw() override;

private:
  void endGame();

  int timeToLive;
};
