#pragma once

#include "Object.h"

/// The picture that frames the playing field. Takes part in nothing.
class Border : public gw::Object {
public:
  static constexpr const char *TYPE = "Border";

  Border();

  int eventHandler(const gw::Event *p_e) override;
};
