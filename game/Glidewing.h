#pragma once

#include "Insect.h"

/// Long and thin, four wings; comes in colours and can be pinned.
class Glidewing : public Insect {
public:
  static constexpr const char *TYPE = "Glidewing";

  Glidewing();
};
