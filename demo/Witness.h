#pragma once

#include "Object.h"

/// What a run reached.
struct Achievements {
  int games = 0;
  int best_score = 0;
  int rows_sold = 0;
  int overlapping_slow_downs = 0; ///< set off while one was running
  int sold_on_full_board = 0;     ///< boards overflowed while a row completed
};

/// Watches the game and counts what is reached. Invisible, without collisions; changes
/// nothing.
class Witness : public gw::Object {
public:
  static constexpr const char *TYPE = "Witness";

  Witness();

  int eventHandler(const gw::Event *p_e) override;
  int draw() override { return 0; }

  const Achievements &getAchievements() const { return achievements; }

private:
  void look();
  void noteSlowDown();

  Achievements achievements;
  int slow_steps_left = 0;
  bool was_playing = false;
};
