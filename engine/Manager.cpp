#include "Manager.h"

#include "Object.h"
#include "ObjectList.h"
#include "WorldManager.h"

namespace gw {

int Manager::startUp() {
  is_started = true;
  return 0;
}

void Manager::shutDown() {
  is_started = false;
}

int Manager::onEvent(const Event *p_event) const {
  const ObjectList objects = WorldManager::getInstance().getAllObjects();
  for (Object *p_o : objects)
    p_o->eventHandler(p_event);
  return objects.getCount();
}

} // namespace gw
