#pragma once

#include "Insect.h"

/// Broad wings; comes in colours and can be pinned.
class Butterfly : public Insect {
public:
  static constexpr const char *TYPE = "Butterfly";

  Butterfly();
};
