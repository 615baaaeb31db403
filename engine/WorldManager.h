#pragma once

#include "Manager.h"
#include "ObjectList.h"
#include "Vector.h"

#include <memory>
#include <string>

namespace gw {

class CollisionGrid;
class Object;

/// Owns every object. Once per step it deletes what was marked, moves what has
/// a velocity, telling objects of collisions and of leaving the world, and draws
/// everything by altitude. The world is the display's grid: 0 to
/// `DisplayManager::getHorizontal()` and 0 to `getVertical()` cells, both ends
/// included; objects may leave it and go on outside.
///
/// Handlers may create, mark, move or resize objects at any time; only deletion waits for
/// the next update.
class WorldManager : public Manager {
public:
  /// The only one.
  static WorldManager &getInstance();

  /// Deletes no objects: see `shutDown`.
  ~WorldManager() override;

  /// @return 0. Objects that exist already stay.
  int startUp() override;

  /// Deletes all objects, also those that destructors create meanwhile. Gives up with an
  /// ERROR where these create new ones without end.
  void shutDown() override;

  /// A copy of the list of all objects, in list order.
  ObjectList getAllObjects() const { return updates; }

  /// All objects whose type is exactly `wanted_type`, in list order.
  ObjectList getAllObjectsOfType(std::string wanted_type);

  /// All other objects that register collisions and whose box the object's box
  /// would touch if it were at `where`, in list order.
  ObjectList getCollisions(const Object *p_o, Vector where);

  /// Whether the object, which still exists, was marked for deletion. False for null.
  bool isMarkedForDelete(const Object *p_o) const;

  /// Marks the object for deletion in the next update. Until then it still hears events,
  /// collides and is drawn: a second key press in the same step finds it there. Whoever
  /// does more than mark asks first, with `isMarkedForDelete`, whether that is done.
  /// Marking twice is harmless, and so is null. @return 0
  int markForDelete(Object *p_o);

  /// Moves the object to `where` (cells) unless something blocks it: first every
  /// collision is told to both parties, in list order; then, if neither of two
  /// `BLOCK` objects is in the way, the object hears that it is leaving the
  /// world, when it is, and gets its new position.
  /// @return 0, or -1 when blocked (the position stays)
  int moveObject(Object *p_o, Vector where);

  /// One step: deletes the marked objects, then moves those whose velocity
  /// changes their position. Objects created meanwhile are moved as well.
  void update();

  /// Draws altitude 0 first and `MAX_ALTITUDE` last, each in list order.
  void draw();

private:
  friend class Object;

  WorldManager();

  /// Called by an object's constructor and destructor: puts it at the end of the list
  /// (unless it is there already), and takes it out (the last object moves into its
  /// place). Removing does not delete.
  /// @return 0; `removeObject` -1 when it is not in the world @{
  int insertObject(Object *p_o);
  int removeObject(Object *p_o); ///@}

  /// Called by an object's setters when its box, its position or its collision response
  /// has changed: keeps what `getCollisions` knows of it current.
  void updateCollisions(const Object *p_o);

  void deleteMarkedObjects();

  ObjectList updates; ///< every object in the world
  std::unique_ptr<CollisionGrid>
      p_grid;           ///< their boxes; an index is the one in `updates`
  ObjectList deletions; ///< marked objects, each once
};

} // namespace gw
