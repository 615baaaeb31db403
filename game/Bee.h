#pragma once

#include "Insect.h"

/// Not to be pinned: a press on a bee sets off the slow-down, which makes every
/// bee pay and disappear.
class Bee : public Insect {
public:
  static constexpr const char *TYPE = "Bee";

  Bee();

  int eventHandler(const gw::Event *p_e) override;

  /// Adds the bee's bonus to the score, if there is one.
  void beeScore();
};
