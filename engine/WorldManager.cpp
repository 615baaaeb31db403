#include "WorldManager.h"

#include "Assertion.h"
#include "DisplayManager.h"
#include "EventCollision.h"
#include "EventOut.h"
#include "LogManager.h"
#include "Object.h"
#include "internal/CollisionGrid.h"
#include "utility.h"
#include "vectorOperators.h"

namespace gw {

namespace {

bool isInsideWorld(Vector position) {
  const DisplayManager &display = DisplayManager::getInstance();
  return position.getX() >= 0 &&
         position.getX() <= static_cast<float>(display.getHorizontal()) &&
         position.getY() >= 0 &&
         position.getY() <= static_cast<float>(display.getVertical());
}

/// Tells both parties of every collision at `where`. The responses are read after
/// the handlers have run, so a handler can let a mover pass or stop it.
/// @return whether the object may move there
bool reportCollisions(Object *p_o, Vector where) {
  bool do_move = true;
  for (Object *p_other : WorldManager::getInstance().getCollisions(p_o, where)) {
    const EventCollision event(p_o, p_other, where);
    p_o->eventHandler(&event);
    p_other->eventHandler(&event);
    if (p_o->getCollisionResponse() == BLOCK && p_other->getCollisionResponse() == BLOCK)
      do_move = false;
  }
  return do_move;
}

} // namespace

WorldManager::WorldManager() : p_grid(std::make_unique<CollisionGrid>()) {
  setType("WorldManager");
}

WorldManager::~WorldManager() = default;

WorldManager &WorldManager::getInstance() {
  static WorldManager instance;
  return instance;
}

int WorldManager::startUp() {
  LogManager &log = LogManager::getInstance();
  if (isStarted()) {
    log.writeLog(INFO, "WorldManager is already started.");
    return 0;
  }
  Manager::startUp();
  log.writeLog(INFO, "WorldManager is started up.");
  return 0;
}

void WorldManager::shutDown() {
  LogManager &log = LogManager::getInstance();
  if (!isStarted()) {
    log.writeLog(INFO, "WorldManager is already shut down.");
    return;
  }
  log.writeLog(INFO, "WorldManager is shutting down.");
  // Destructors may create objects. Whoever does so without end is stopped.
  constexpr int MOST_ROUNDS = 100;
  for (int round = 0; round < MOST_ROUNDS && !updates.isEmpty(); round++) {
    const ObjectList objects = updates;
    for (const Object *p_o : objects)
      delete p_o;
  }
  if (!updates.isEmpty())
    log.writeLog(ERROR,
                 "gw::WorldManager::shutDown() - Destructors create objects without end. "
                 "%d are left.",
                 updates.getCount());
  deletions.clear();
  Manager::shutDown();
}

ObjectList WorldManager::getAllObjectsOfType(std::string wanted_type) {
  ObjectList found;
  for (Object *p_o : updates)
    if (p_o->type == wanted_type) // in place: `getType` copies it
      found.insert(p_o);
  return found;
}

ObjectList WorldManager::getCollisions(const Object *p_o, Vector where) {
  GW_ASSERT(p_o, "a null object collides with nothing");
  ObjectList collisions;
  for (int i : p_grid->find(getWorldBox(p_o, where)))
    if (updates[i] != p_o)
      collisions.insert(updates[i]);
  return collisions;
}

bool WorldManager::isMarkedForDelete(const Object *p_o) const {
  return p_o && p_o->is_marked;
}

int WorldManager::insertObject(Object *p_o) {
  GW_ASSERT(p_o, "a null object is put into the world");
  if (p_o->world_index >= 0)
    return 0;
  p_o->world_index = updates.getCount();
  updates.insert(p_o);
  p_grid->insert(getWorldBox(p_o), p_o->registersCollisions());
  return 0;
}

int WorldManager::removeObject(Object *p_o) {
  GW_ASSERT(p_o, "a null object is taken out of the world");
  const int index = p_o->world_index;
  if (index < 0)
    return -1;
  GW_ASSERT(index < updates.getCount() && updates[index] == p_o,
            "an object is taken out of the world that is not where it should be");
  updates.removeAt(index);
  p_grid->remove(index);
  if (index < updates.getCount()) // the last one is there now
    updates[index]->world_index = index;
  p_o->world_index = -1;
  return 0;
}

void WorldManager::updateCollisions(const Object *p_o) {
  if (p_o->world_index >= 0)
    p_grid->update(p_o->world_index, getWorldBox(p_o), p_o->registersCollisions());
}

int WorldManager::markForDelete(Object *p_o) {
  if (!p_o || p_o->is_marked)
    return 0;
  p_o->is_marked = true;
  deletions.insert(p_o);
  return 0;
}

int WorldManager::moveObject(Object *p_o, Vector where) {
  GW_ASSERT(p_o, "a null object is moved");
  if (p_o->registersCollisions() && !reportCollisions(p_o, where))
    return -1;
  if (!isInsideWorld(where) && isInsideWorld(p_o->getPosition())) {
    const EventOut event;
    p_o->eventHandler(&event);
  }
  p_o->setPosition(where);
  return 0;
}

void WorldManager::update() {
  deleteMarkedObjects();
  for (int i = 0; i < updates.getCount(); i++) { // which grows meanwhile
    Object *p_o = updates[i];
    const Vector to = p_o->predictPosition();
    if (to != p_o->getPosition())
      moveObject(p_o, to);
  }
}

void WorldManager::draw() {
  for (int altitude = 0; altitude <= MAX_ALTITUDE; altitude++)
    for (int i = 0; i < updates.getCount(); i++)
      if (updates[i]->getAltitude() == altitude)
        updates[i]->draw();
}

/// What a destructor marks meanwhile goes in the next update.
void WorldManager::deleteMarkedObjects() {
  const ObjectList marked = deletions;
  deletions.clear();
  for (const Object *p_o : marked)
    delete p_o;
}

} // namespace gw
