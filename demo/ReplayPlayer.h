#pragma once

#include "Player.h"
#include "Recording.h"

/// Plays a recorded game again: posts its events in the steps they belong to.
class ReplayPlayer : public Player {
public:
  explicit ReplayPlayer(Recording init_recording);

private:
  void play(int step) override;

  Recording recording;
  std::size_t next = 0; ///< index of the event to be posted next
};
