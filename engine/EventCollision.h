#pragma once

#include "Event.h"
#include "Vector.h"

namespace gw {

class Object;

/// The type of an `EventCollision`.
inline const std::string COLLISION_EVENT = "gw::collision";

/// One object runs into another. The mover hears of it first, then the other object gets
/// the same event.
class EventCollision : public Event {
public:
  /// Without arguments: no objects, position (0, 0). @{
  EventCollision();
  EventCollision(Object *p_o1, Object *p_o2, Vector p); ///@}

  /// The object that is moving; not owned. @{
  void setObject1(Object *p_o) { object1 = p_o; }
  Object *getObject1() const { return object1; } ///@}

  /// The object that it runs into; not owned. @{
  void setObject2(Object *p_o) { object2 = p_o; }
  Object *getObject2() const { return object2; } ///@}

  /// Where the mover is trying to go, in cells. @{
  void setPosition(Vector new_position) { position = new_position; }
  Vector getPosition() const { return position; } ///@}

private:
  Vector position;
  Object *object1 = nullptr;
  Object *object2 = nullptr;
};

} // namespace gw
