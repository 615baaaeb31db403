#include "Object.h"

#include "LogManager.h"
#include "ResourceManager.h"
#include "Sprite.h"
#include "WorldManager.h"
#include "vectorOperators.h"

namespace gw {

namespace {

int id_tracker = 0;

} // namespace

Object::Object() : id(id_tracker++) {
  WorldManager::getInstance().insertObject(this);
}

Object::~Object() {
  WorldManager::getInstance().removeObject(this);
}

int Object::eventHandler(const Event *) {
  return 0;
}

int Object::draw() {
  return animation.draw(position);
}

void Object::setPosition(Vector new_position) {
  position = new_position;
  WorldManager::getInstance().updateCollisions(this);
}

void Object::setDirection(Vector new_direction) {
  new_direction.normalize();
  direction = new_direction;
}

void Object::setVelocity(Vector new_velocity) {
  speed = new_velocity.getMagnitude();
  setDirection(new_velocity);
}

Vector Object::getVelocity() const {
  return direction * speed;
}

Vector Object::predictPosition() const {
  return position + getVelocity();
}

int Object::setCollisionResponse(CollisionResponse new_response) {
  if (new_response < BLOCK || new_response > IGNORE)
    return -1;
  collision_response = new_response;
  WorldManager::getInstance().updateCollisions(this);
  return 0;
}

int Object::setAltitude(int new_altitude) {
  if (new_altitude < 0 || new_altitude > MAX_ALTITUDE)
    return -1;
  altitude = new_altitude;
  return 0;
}

void Object::setAnimation(Animation new_animation) {
  animation = new_animation;
  setBox(animation.getBox());
}

int Object::setSprite(std::string sprite_label) {
  Sprite *p_sprite = ResourceManager::getInstance().getSprite(sprite_label);
  if (!p_sprite) {
    LogManager::getInstance().writeLog(
        WARNING, "gw::Object::setSprite() - Sprite with label %s not found. Ignoring.",
        sprite_label.c_str());
    return -1;
  }
  animation.setSprite(p_sprite);
  setBox(animation.getBox());
  return 0;
}

int Object::setFrameIndex(int new_index) {
  const Sprite *p_sprite = animation.getSprite();
  const bool is_there =
      p_sprite && new_index >= 0 && new_index < p_sprite->getFrameCount();
  animation.setFrameIndex(new_index); // which complains about one that is not there
  return is_there ? 0 : -1;
}

void Object::setBox(Box new_box) {
  box = new_box;
  WorldManager::getInstance().updateCollisions(this);
}

} // namespace gw
