#include "Sequence.h"

#include "Butterfly.h"
#include "EventClear.h"
#include "EventPin.h"
#include "Glidewing.h"
#include "LogManager.h"
#include "PinBoard.h"
#include "Random.h"
#include "SoldTag.h"
#include "WorldManager.h"
#include "gameUtility.h"

namespace {

constexpr int MAX_LENGTH = 6;

/// Where the target at `index` stands, in cells.
gw::Vector targetPosition(int index) {
  return gw::Vector(static_cast<float>(9 + 10 * index), 4);
}

} // namespace

Sequence::Sequence() {
  setType(TYPE);
  setSprite("Sequence");
  setCollisionResponse(gw::IGNORE);
  setAltitude(3);
  setPosition(gw::Vector(34, 4));
}

void Sequence::generateSequence(int length) {
  if (!sequence.isEmpty())
    sellSequence();
  currentIndex = 0;
  for (int i = 0; i < length; i++) {
    Insect *p_target = makeTarget(i);
    sequence.insert(p_target);
    gw::LogManager::getInstance().writeLog(
        gw::DEBUG,
        "Sequence::generateSequence(): Insect with object id %d, type %s, and color %s "
        "placed at sequence index %d.",
        p_target->getId(), p_target->getType().c_str(),
        p_target->getColorAsString().c_str(), i);
  }
  advanceCurrentIndexCheck();
}

void Sequence::generateSequence() {
  generateSequence(gw::rand() % MAX_LENGTH + 1);
}

bool Sequence::insectMatchesSequence(Insect *p_insect, int index) {
  const Insect *p_target = &asInsect(sequence[index]);
  const bool same_type = p_insect->getType() == p_target->getType();
  const bool same_color = p_insect->getColor() == p_target->getColor();
  const char *verdict = !same_type    ? "did not match type of"
                        : !same_color ? "did not match color of"
                                      : "matched";
  gw::LogManager::getInstance().writeLog(
      gw::DEBUG,
      "Sequence::insectMatchesSequence(): Insect with object id %d, type %s, color %s %s "
      "Insect with object id %d, type %s, color %s at sequence index %d.",
      p_insect->getId(), p_insect->getType().c_str(),
      p_insect->getColorAsString().c_str(), verdict, p_target->getId(),
      p_target->getType().c_str(), p_target->getColorAsString().c_str(), index);
  return same_type && same_color;
}

void Sequence::advanceCurrentIndexCheck() {
  const auto *p_board = findFirst<PinBoard>();
  if (!p_board)
    return;
  const gw::ObjectList board = p_board->getPinnedBugs();
  for (int start = 0; start < board.getCount(); start++) {
    int matched = 0;
    while (matched < sequence.getCount()) {
      if (start + matched == board.getCount()) {
        currentIndex = matched;
        return;
      }
      if (!insectMatchesSequence(&asInsect(board[start + matched]), matched))
        break;
      matched++;
      if (matched == sequence.getCount()) {
        generateSequence();
        return;
      }
    }
  }
}

/// Removals from the world's list can bring the sequence in front of the board;
/// then a pin that the board has not heard of is handed to it first.
int Sequence::eventHandler(const gw::Event *p_e) {
  const auto *p_pin = gw::eventAs<EventPin>(p_e, PIN_EVENT);
  if (!p_pin)
    return 0;
  Insect *p_insect = p_pin->getPinnedInsect();
  if (!p_insect || sequence.isEmpty())
    return 1;
  auto *p_board = findFirst<PinBoard>();
  if (p_board && !p_board->holds(p_insect))
    p_board->eventHandler(p_e);
  checkPin(p_insect);
  return 1;
}

int Sequence::draw() {
  if (gw::Object::draw() == -1)
    return -1;
  for (gw::Object *p_target : sequence)
    p_target->draw();
  return 0;
}

/// Everybody reacts to the clear event before it returns; only then do the old
/// targets go.
void Sequence::sellSequence() {
  gw::LogManager &log = gw::LogManager::getInstance();
  gw::WorldManager &world = gw::WorldManager::getInstance();
  log.writeLog(gw::DEBUG,
               "Sequence::eventHandler(): Sequence cleared! Sending clear event.");
  const EventClear clear(sequence);
  world.onEvent(&clear);
  log.writeLog(gw::DEBUG, "Sequence::eventHandler(): Generating new Sequence.");
  for (gw::Object *p_target : sequence)
    world.markForDelete(p_target);
  sequence.clear();
  new SoldTag;
}

/// The order of the random numbers, colour first, is part of the game.
Insect *Sequence::makeTarget(int index) {
  const auto color_index = static_cast<std::size_t>(gw::rand()) % INSECT_COLORS.size();
  Insect *p_target = nullptr;
  if (gw::rand() % 2 == 0)
    p_target = new Glidewing;
  else
    p_target = new Butterfly;
  p_target->setColor(INSECT_COLORS[color_index]);
  p_target->setPosition(targetPosition(index));
  p_target->setVelocity(gw::Vector());
  p_target->setCollisionResponse(gw::IGNORE);
  p_target->setAltitude(gw::MAX_ALTITUDE);
  p_target->setPinnable(false);
  p_target->setTintedSprite();
  return p_target;
}

/// A wrong pin costs the progress made, but may itself start the row afresh.
void Sequence::checkPin(Insect *p_insect) {
  gw::LogManager &log = gw::LogManager::getInstance();
  log.writeLog(
      gw::DEBUG,
      "Sequence::eventHandler(): Insect with object id %d, type %s, color %s was "
      "pinned. Checking if it matches the next required Insect at index %d.",
      p_insect->getId(), p_insect->getType().c_str(),
      p_insect->getColorAsString().c_str(), currentIndex);
  if (insectMatchesSequence(p_insect, currentIndex)) {
    currentIndex++;
    if (currentIndex >= sequence.getCount())
      generateSequence();
    return;
  }
  log.writeLog(gw::DEBUG, "Sequence::eventHandler(): Sequence failed! Setting next "
                          "required Sequence index to 0.");
  currentIndex = insectMatchesSequence(p_insect, 0) ? 1 : 0;
}
