#pragma once

#include "Event.h"
#include "Vector.h"

namespace gw {

class Object;

/// The type of an `EventCollision`.
inline const std::string COLLISION_EVENT = "gw::collision";

/// One object runs into another. The mover hears of it first, then the other object gets
/// the same event.
///
/// A collision is one of a move, not of a meeting: it comes again in every step in which
/// a move ends in touch, and when both move, each move is told to both, twice a step in
/// all. Who counts hits acts on one of them: as the mover (`getObject1() == this`), or
/// once for as long as the touch lasts.
///
/// It comes before the move is made: a position that the mover sets in its handler is
/// lost, unless the move is blocked. It sets it in the next step event. What the other
/// object sets counts.
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

  /// The other of the two, whoever moves: `getOther(this)`; not owned. Null for an
  /// object that is neither.
  Object *getOther(const Object *p_o) const;

  /// Where the mover is trying to go, in cells. @{
  void setPosition(Vector new_position) { position = new_position; }
  Vector getPosition() const { return position; } ///@}

private:
  Vector position;
  Object *object1 = nullptr;
  Object *object2 = nullptr;
};

} // namespace gw
