#pragma once

#include "Object.h"

/// A place that insects fly out of. Whether it releases one is decided at random
/// on every step: the longer the wait, the likelier, and certain once a period has
/// passed. The period shrinks with every row sold.
class Spawner : public gw::Object {
public:
  static constexpr const char *TYPE = "Spawner";

  /// In the middle of the display; releases its first insect on its first step.
  Spawner();

  /// The longest wait between two insects, in steps; at least 1.
  void setSpawnFrequency(int new_frequency) { spawnFrequency = new_frequency; }
  int getSpawnFrequency() const { return spawnFrequency; }

  /// Steps left in the current period.
  void setSpawnCountdown(int new_countdown) { spawnCountdown = new_countdown; }
  int getSpawnCountdown() const { return spawnCountdown; }

  /// What the velocity of new insects is multiplied by: 1, or less during a
  /// slow-down.
  float getSlowMultiplier() const { return slowMultiplier; }

  /// Releases one insect of random kind, colour and velocity, where the spawner
  /// is. The order in which it draws random numbers is part of the game.
  void spawnInsect();

  int eventHandler(const gw::Event *p_e) override;

private:
  void countDown();
  void shortenPeriod();

  int spawnFrequency = 400; ///< steps
  int spawnCountdown = 0;   ///< steps
  float slowMultiplier = 1;
};
