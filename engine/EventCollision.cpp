#include "EventCollision.h"

namespace gw {

EventCollision::EventCollision() {
  setType(COLLISION_EVENT);
}

EventCollision::EventCollision(Object *p_o1, Object *p_o2, Vector p)
    : position(p), object1(p_o1), object2(p_o2) {
  setType(COLLISION_EVENT);
}

} // namespace gw
