#include "Border.h"

#include "gameUtility.h"

Border::Border() {
  setType(TYPE);
  setSprite("Border");
  setAltitude(2);
  setCollisionResponse(gw::IGNORE);
  setPosition(displayCenter());
}

int Border::eventHandler(const gw::Event *) {
  return 0;
}
