#pragma once

#include "Object.h"

/// The picture that frames the playing field. Takes part in nothing.
class Border : public gw::Object {
public:
  Border();

  int eventHandler(const gw::Event *p_e) override;
};
