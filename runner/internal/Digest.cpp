#include "internal/Digest.h"

#include "DisplayManager.h"
#include "Game.h"
#include "Object.h"
#include "Random.h"
#include "TextScreen.h"
#include "WorldManager.h"

namespace gw {

namespace {

void addObject(Hash &hash, const Object &object) {
  hash.add(object.getId());
  hash.add(object.getType());
  hash.add(object.getPosition());
  hash.add(object.getDirection());
  hash.add(object.getSpeed());
  hash.add(object.getCollisionResponse());
  hash.add(object.getAltitude());
  const Animation animation = object.getAnimation();
  hash.add(animation.getSpriteLabel());
  hash.add(animation.getFrameIndex());
  hash.add(animation.getSlowdownCount());
  const Box box = object.getBox();
  hash.add(box.getCorner());
  hash.add(box.getHorizontal());
  hash.add(box.getVertical());
  hash.add(WorldManager::getInstance().isMarkedForDelete(&object) ? 1 : 0);
}

} // namespace

std::uint64_t digestOf(const Game &game) {
  Hash hash;
  for (const Object *p_o : WorldManager::getInstance().getAllObjects()) {
    addObject(hash, *p_o);
    if (game.addFields)
      game.addFields(hash, *p_o);
  }
  hash.add(static_cast<int>(getRandState()));
  if (const TextScreen *p_text = DisplayManager::getInstance().getText()) {
    for (const std::string &row : p_text->getRows())
      hash.add(row);
    for (const std::string &row : p_text->getColorRows())
      hash.add(row);
  }
  return hash.get();
}

} // namespace gw
