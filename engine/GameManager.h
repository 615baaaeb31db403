#pragma once

#include "Manager.h"

/// Glidewing, the engine. A game starts `GameManager`, creates its objects, derived
/// from `Object`, and lets the game manager run.
namespace gw {

/// Length of one step of the game loop, in milliseconds. All game timing counts
/// steps: changing this changes the game's pace as a whole.
constexpr int FRAME_TIME_DEFAULT = 33;

/// Given to `runStep` as lateness, the step does not sleep (microseconds).
constexpr long long NEVER_SLEEP = 1LL << 40;

/// The top of the engine: starts and stops the other managers, and runs the game
/// loop on the calling thread until something sets the game-over flag.
class GameManager : public Manager {
public:
  /// The only one.
  static GameManager &getInstance();

  /// Starts log, display, input, resources and world, in this order. A manager that
  /// cannot start says so in the log, and the game goes on without it. Only without a
  /// window there is no game.
  /// @return 0, also when already started; -1 without a window. The log then stays open
  /// until the process ends, so that the caller can write to it.
  int startUp() override;

  /// Starts log, resources and world only: no window is opened, and there is no input but
  /// what is posted. For tests, measurements, replays, and for games that are shown
  /// elsewhere.
  /// @param is_audible whether sounds and music are heard
  /// @return 0, also when already started
  int startUpHeadless(bool is_audible = false);

  /// Stops the managers in the reverse order.
  void shutDown() override;

  /// Runs steps until the game-over flag is set; a step that sets it is
  /// completed.
  void run();

  /// One step: the step event, input, the world's update and drawing, the frame,
  /// and sleep for what is left of the step's time.
  /// @param adjust_time by how much the steps so far are late, in microseconds: what the
  /// step before returned. This one sleeps less to make up for it.
  /// @return by how much they are late now, in microseconds; never negative
  long long runStep(long long adjust_time);

  /// Whether `run` ends with the current step. @{
  void setGameOver(bool new_game_over) { game_over = new_game_over; }
  bool getGameOver() const { return game_over; } ///@}

  /// Completed steps since the process began.
  int getStepCount() const { return step_count; }

  /// Length of a step, in milliseconds.
  int getFrameTime() const { return frame_time; }

private:
  GameManager();

  int start(bool with_display, bool is_audible);

  bool game_over = false;
  int step_count = 0;
  int frame_time = FRAME_TIME_DEFAULT; ///< milliseconds
};

} // namespace gw
