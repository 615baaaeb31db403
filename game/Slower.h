#pragma once

#include "Object.h"

/// Ends the slow-down: counts the steps since the last slow event and then sends
/// the unslow event, once. Invisible; one for each game.
class Slower : public gw::Object {
public:
  Slower();

  int eventHandler(const gw::Event *p_e) override;

private:
  void countDown();

  int slowCountdown; ///< steps left, or IDLE
};
