#include "PinBoard.h"

#include "DisplayManager.h"
#include "EventClear.h"
#include "EventPin.h"
#include "GameOver.h"
#include "Insect.h"
#include "LogManager.h"
#include "WorldManager.h"
#include "gameUtility.h"

namespace {

constexpr int SLOT_HEIGHT = 6; ///< rows

/// @param slot counted from 1
float slotY(int slot) {
  return static_cast<float>(SLOT_HEIGHT * slot - 1);
}

} // namespace

PinBoard::PinBoard() {
  const gw::DisplayManager &display = gw::DisplayManager::getInstance();
  setType(TYPE);
  setSprite("PinBoard");
  setAltitude(3);
  setCollisionResponse(gw::IGNORE);
  setPosition(gw::Vector(static_cast<float>(display.getHorizontal()) - 12,
                         static_cast<float>(display.getVertical()) * 0.5f));
}

bool PinBoard::holds(const Insect *p_insect) const {
  return pinnedBugs.contains(p_insect);
}

/// A pin may come twice, from the broadcast and from the sequence: an insect is
/// taken once, and not again after it was sold in between.
int PinBoard::eventHandler(const gw::Event *p_e) {
  if (const auto *p_pin = gw::eventAs<EventPin>(p_e, PIN_EVENT)) {
    Insect *p_insect = p_pin->getPinnedInsect();
    if (p_insect && !holds(p_insect) &&
        !gw::WorldManager::getInstance().isMarkedForDelete(p_insect))
      take(p_insect);
    return 1;
  }
  if (const auto *p_clear = gw::eventAs<EventClear>(p_e, CLEAR_EVENT)) {
    if (pinnedBugs.getCount() < capacity)
      removeNewest(p_clear->getSequence().getCount());
    return 1;
  }
  return 0;
}

void PinBoard::take(Insect *p_insect) {
  pinnedBugs.insert(p_insect);
  const int slot = pinnedBugs.getCount();
  p_insect->setVelocity(gw::Vector());
  p_insect->setPosition(gw::Vector(getPosition().getX(), slotY(slot)));
  gw::LogManager::getInstance().writeLog(
      gw::DEBUG,
      "PinBoard::eventHandler(): Insect with object id %d, type %s, color %s was pinned. "
      "Placing it at Pin Board slot %d.",
      p_insect->getId(), p_insect->getType().c_str(),
      p_insect->getColorAsString().c_str(), slot);
  p_insect->setAltitude(gw::MAX_ALTITUDE);
  if (slot == capacity)
    endGame();
}

/// @param number insects of the sold row; more than there are take off all
void PinBoard::removeNewest(int number) {
  const int kept = pinnedBugs.getCount() > number ? pinnedBugs.getCount() - number : 0;
  gw::ObjectList remaining;
  for (int i = 0; i < kept; i++) {
    remaining.insert(pinnedBugs[i]);
    pinnedBugs[i]->setPosition(gw::Vector(getPosition().getX(), slotY(i + 1)));
  }
  for (int i = kept; i < pinnedBugs.getCount(); i++) {
    const Insect &insect = asInsect(pinnedBugs[i]);
    gw::LogManager::getInstance().writeLog(
        gw::DEBUG,
        "PinBoard::eventHandler(): Removing pinned bug with object id %d, type %s, color "
        "%s at board index %d.",
        insect.getId(), insect.getType().c_str(), insect.getColorAsString().c_str(), i);
    gw::WorldManager::getInstance().markForDelete(pinnedBugs[i]);
  }
  pinnedBugs = remaining;
  playSound("ClearSequence");
}

void PinBoard::endGame() {
  gw::LogManager::getInstance().writeLog(
      gw::DEBUG, "PinBoard::eventHandler(): The Pin Board overflowed! Transitioning to "
                 "Game Over.");
  playSound("GameOver");
  new GameOver;
}
