#include "EventCollision.h"

namespace gw {

EventCollision::EventCollision() {
  setType(COLLISION_EVENT);
}

EventCollision::EventCollision(Object *p_o1, Object *p_o2, Vector p)
    : position(p), object1(p_o1), object2(p_o2) {
  setType(COLLISION_EVENT);
}

Object *EventCollision::getOther(const Object *p_o) const {
  if (p_o == object1)
    return object2;
  return p_o == object2 ? object1 : nullptr;
}

} // namespace gw
