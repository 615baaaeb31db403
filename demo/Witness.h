#pragma once

#include "Object.h"
#include "Recording.h"

namespace gw {
class EventKeyboard;
class EventMouse;
} // namespace gw

/// What a run reached.
struct Achievements {
  int games = 0;
  int best_score = 0;
  int rows_sold = 0;
  int overlapping_slow_downs = 0; ///< set off while one was running
  int sold_on_full_board = 0;     ///< boards overflowed while a row completed
};

/// Watches the game: counts what is reached, and writes every input event to a recording.
/// Invisible, without collisions; changes nothing.
class Witness : public gw::Object {
public:
  /// @param p_init_writer not owned, must outlive the world; null records nothing
  explicit Witness(RecordingWriter *p_init_writer);

  int eventHandler(const gw::Event *p_e) override;
  int draw() override { return 0; }

  const Achievements &getAchievements() const { return achievements; }

private:
  void look();
  void noteSlowDown();
  void record(const gw::EventKeyboard &event);
  void record(const gw::EventMouse &event);

  Achievements achievements;
  RecordingWriter *p_writer;
  int step = -1; ///< the current one, counted from 0
  int slow_steps_left = 0;
  bool was_playing = false;
};
