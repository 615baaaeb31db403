#pragma once

#include "Object.h"

/// Ends the slow-down: counts the steps since the last slow event and then sends
/// the unslow event, once. Invisible; one for each game.
class Slower : public gw::Object {
public:
  static constexpr const char *TYPE = "Slower";

  /// From the slow event to the unslow event, in steps.
  static constexpr int SLOW_DOWN_STEPS = 34;

  Slower();

  int eventHandler(const gw::Event *p_e) override;

  /// Steps left until the unslow event; -1 when no slow-down is running.
  int getSlowCountdown() const { return slowCountdown; }

private:
  void countDown();

  int slowCountdown;
};
