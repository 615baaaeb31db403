#include "SoldTag.h"

#include "EventStep.h"
#include "WorldManager.h"

SoldTag::SoldTag() {
  setType(TYPE);
  setSprite("SoldTag");
  setPosition(gw::Vector(10, 10));
  setCollisionResponse(gw::IGNORE);
}

int SoldTag::eventHandler(const gw::Event *p_e) {
  if (p_e->getType() != gw::STEP_EVENT)
    return 0;
  timeToLive--;
  if (timeToLive <= 0)
    gw::WorldManager::getInstance().markForDelete(this);
  return 1;
}
