#pragma once

#include "Animation.h"
#include "Box.h"
#include "Vector.h"

#include <string>

namespace gw {

class Event;

/// Drawing layers run from 0 to this one, inclusive; higher ones are on top.
constexpr int MAX_ALTITUDE = 4;

/// What happens when an object's move would make its box touch another's.
enum CollisionResponse : int {
  BLOCK = 0,   ///< hears of it, and cannot move onto another `BLOCK` object
  OVERLAP = 1, ///< hears of it, never blocks nor is blocked
  IGNORE = 2,  ///< invisible to collisions
};

/// Base of everything in the world. Create one with `new`: its constructor puts
/// it into the world, which owns it from then on. To end one, hand it to
/// `WorldManager::markForDelete`; nobody else deletes an object, and until the next
/// update it hears events still (`WorldManager::isMarkedForDelete`). Derived classes
/// override `eventHandler` and, where they show more than their sprite, `draw`.
class Object {
public:
  /// Takes the next id and inserts itself into the world.
  Object();

  /// Takes itself out of the world's list.
  virtual ~Object();

  Object(const Object &) = delete;
  Object &operator=(const Object &) = delete;

  /// Called with every event that concerns the object. May create, mark, move
  /// and send at any time.
  /// @param p_e not null, valid only during the call
  /// @return 1 when it acted on the event, else 0; the engine does not care
  virtual int eventHandler(const Event *p_e);

  /// Draws the object and advances its animation; called once per step.
  /// @return 0, or -1 when it could not (no sprite)
  virtual int draw();

  /// 0, 1, 2 ... in order of creation: unique in the process, unless set by hand. @{
  void setId(int new_id) { id = new_id; }
  int getId() const { return id; } ///@}

  /// The kind of object, by which others look for it (`getAllObjectsOfType`). @{
  void setType(std::string new_type) { type = new_type; }
  std::string getType() const { return type; } ///@}

  /// In cells. Setting it is not a move: no collision, no bounds, no events. What an
  /// object sets while it hears that it moves out or into another is lost, because the
  /// move sets its position after that: see `EventOut` for how to come in again on the
  /// other side. @{
  void setPosition(Vector new_position);
  Vector getPosition() const { return position; } ///@}

  /// Stored with length 1 (a zero vector stays zero); the speed is unchanged. @{
  void setDirection(Vector new_direction);
  Vector getDirection() const { return direction; } ///@}

  /// Cells per step; a negative speed reverses the motion. @{
  void setSpeed(float new_speed) { speed = new_speed; }
  float getSpeed() const { return speed; } ///@}

  /// Direction and speed in one, in cells per step. @{
  void setVelocity(Vector new_velocity);
  Vector getVelocity() const; ///@}

  /// Where the object will be after one step if nothing stops it.
  Vector predictPosition() const;

  /// Whether it takes part in collisions: its response is not `IGNORE`.
  bool registersCollisions() const { return collision_response != IGNORE; }

  /// What happens in collisions.
  /// @return 0, or -1 for a number that is no response (nothing changes) @{
  int setCollisionResponse(CollisionResponse new_response);
  CollisionResponse getCollisionResponse() const { return collision_response; } ///@}

  /// The layer that it is drawn in.
  /// @return 0, or -1 outside 0 to `MAX_ALTITUDE` (nothing changes) @{
  int setAltitude(int new_altitude);
  int getAltitude() const { return altitude; } ///@}

  /// Takes a copy, and its box as the object's box. @{
  void setAnimation(Animation new_animation);
  Animation getAnimation() const { return animation; } ///@}

  /// Shows the loaded sprite with that label from its first frame on and takes
  /// its size as the object's box, centred on the position.
  /// @return 0, or -1 with a WARNING when there is no such sprite (nothing
  /// changes)
  int setSprite(std::string sprite_label);

  /// The frame of its sprite that is shown next, from 0 on; an animation goes on from
  /// there.
  /// @return 0, or -1 with a WARNING for a frame that the sprite does not have, and
  /// without a sprite (nothing changes) @{
  int setFrameIndex(int new_index);
  int getFrameIndex() const { return animation.getFrameIndex(); } ///@}

  /// Extent in cells, relative to the position. @{
  void setBox(Box new_box);
  Box getBox() const { return box; } ///@}

private:
  friend class WorldManager;

  int id;
  std::string type = "Object";
  Vector position;
  Vector direction; ///< length 1, or zero
  float speed = 0;  ///< cells per step
  CollisionResponse collision_response = BLOCK;
  int altitude = 2;
  Animation animation;
  Box box{Vector(-0.5f, -0.5f), 1, 1};
  // The world's:
  int world_index = -1;   ///< in its list of objects; -1 when not in there
  bool is_marked = false; ///< for deletion
};

} // namespace gw
