#include "Digest.h"

#include "GameOver.h"
#include "GameStart.h"
#include "Insect.h"
#include "PinBoard.h"
#include "Random.h"
#include "Score.h"
#include "Sequence.h"
#include "Slower.h"
#include "SoldTag.h"
#include "Spawner.h"
#include "WorldManager.h"

#include <cstring>

namespace {

/// FNV-1a, 64 bits.
class Hash {
public:
  void add(int value) { addBits(static_cast<std::uint32_t>(value)); }

  void add(float value) {
    std::uint32_t bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    addBits(bits);
  }

  void add(const std::string &text) {
    add(static_cast<int>(text.size()));
    for (char ch : text)
      addByte(static_cast<unsigned char>(ch));
  }

  void add(gw::Vector vector) {
    add(vector.getX());
    add(vector.getY());
  }

  /// Which objects, and in which order.
  void add(const gw::ObjectList &list) {
    add(list.getCount());
    for (int i = 0; i < list.getCount(); i++)
      add(list[i]->getId());
  }

  std::uint64_t get() const { return value_so_far; }

private:
  void addBits(std::uint32_t bits) {
    for (int shift = 0; shift < 32; shift += 8)
      addByte(static_cast<unsigned char>(bits >> shift));
  }

  void addByte(unsigned char byte) {
    value_so_far = (value_so_far ^ byte) * 1099511628211u;
  }

  std::uint64_t value_so_far = 14695981039346656037u;
};

void addObject(Hash &hash, const gw::Object &object) {
  hash.add(object.getId());
  hash.add(object.getType());
  hash.add(object.getPosition());
  hash.add(object.getDirection());
  hash.add(object.getSpeed());
  hash.add(object.getCollisionResponse());
  hash.add(object.getAltitude());
  const gw::Animation animation = object.getAnimation();
  hash.add(animation.getSpriteLabel());
  hash.add(animation.getFrameIndex());
  hash.add(animation.getSlowdownCount());
  const gw::Box box = object.getBox();
  hash.add(box.getCorner());
  hash.add(box.getHorizontal());
  hash.add(box.getVertical());
}

/// What an object has beyond every object's fields.
void addOwnFields(Hash &hash, const gw::Object &object) {
  if (const auto *p_insect = dynamic_cast<const Insect *>(&object)) {
    hash.add(p_insect->getColor());
    hash.add(p_insect->isPinnable());
    hash.add(p_insect->getPinned());
  } else if (const auto *p_spawner = dynamic_cast<const Spawner *>(&object)) {
    hash.add(p_spawner->getSpawnFrequency());
    hash.add(p_spawner->getSpawnCountdown());
    hash.add(p_spawner->getSlowMultiplier());
  } else if (const auto *p_slower = dynamic_cast<const Slower *>(&object)) {
    hash.add(p_slower->getSlowCountdown());
  } else if (const auto *p_board = dynamic_cast<const PinBoard *>(&object)) {
    hash.add(p_board->getPinnedBugs());
  } else if (const auto *p_sequence = dynamic_cast<const Sequence *>(&object)) {
    hash.add(p_sequence->getSequence());
    hash.add(p_sequence->getCurrentIndex());
  } else if (const auto *p_score = dynamic_cast<const Score *>(&object)) {
    hash.add(p_score->getScore());
  } else if (const auto *p_menu = dynamic_cast<const GameStart *>(&object)) {
    hash.add(p_menu->getMenuActive());
  } else if (const auto *p_tag = dynamic_cast<const SoldTag *>(&object)) {
    hash.add(p_tag->getTimeToLive());
  } else if (const auto *p_end = dynamic_cast<const GameOver *>(&object)) {
    hash.add(p_end->getTimeToLive());
  }
}

} // namespace

std::uint64_t digestOfGame() {
  Hash hash;
  const gw::ObjectList objects = gw::WorldManager::getInstance().getAllObjects();
  hash.add(objects);
  for (int i = 0; i < objects.getCount(); i++) {
    addObject(hash, *objects[i]);
    addOwnFields(hash, *objects[i]);
  }
  hash.add(static_cast<int>(gw::getRandState()));
  return hash.get();
}
