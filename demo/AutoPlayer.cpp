#include "AutoPlayer.h"

#include "Bee.h"
#include "DisplayManager.h"
#include "GameStart.h"
#include "Input.h"
#include "Sequence.h"
#include "WorldManager.h"
#include "gameUtility.h"
#include "vectorOperators.h"

#include <algorithm>

namespace {

constexpr float REACH = 9;     ///< cells that the pointer gets in a step
constexpr float BEE_NEAR = 16; ///< cells from the pointer
constexpr int MENU_STEPS = 45; ///< how long the title shows before the next game

float distance(gw::Vector a, gw::Vector b) {
  return (a - b).getMagnitude();
}

std::vector<Insect *> allInsects() {
  std::vector<Insect *> insects;
  for (gw::Object *p_o : gw::WorldManager::getInstance().getAllObjects())
    if (auto *p_insect = dynamic_cast<Insect *>(p_o))
      insects.push_back(p_insect);
  return insects;
}

bool isFree(const Insect &insect) {
  return insect.isPinnable() && !insect.getPinned();
}

bool isBee(const Insect &insect) {
  return insect.getType() == Bee::TYPE;
}

/// The free insect nearest to a place for which `fits` holds, or null.
template <class Fits> const Insect *findNearest(gw::Vector place, Fits fits) {
  const Insect *p_nearest = nullptr;
  for (const Insect *p_insect : allInsects())
    if (isFree(*p_insect) && fits(*p_insect) &&
        (!p_nearest || distance(place, p_insect->getPosition()) <
                           distance(place, p_nearest->getPosition())))
      p_nearest = p_insect;
  return p_nearest;
}

/// What the row asks for next, or null.
const Insect *findTarget() {
  const auto *p_sequence = findFirst<Sequence>();
  if (!p_sequence ||
      p_sequence->getCurrentIndex() >= p_sequence->getSequence().getCount())
    return nullptr;
  return &asInsect(p_sequence->getSequence()[p_sequence->getCurrentIndex()]);
}

/// Whether a press there would pin something else as well.
bool hitsOthers(gw::Vector where, const Insect &wanted) {
  for (const Insect *p_insect : allInsects())
    if (p_insect != &wanted && isFree(*p_insect) && !isBee(*p_insect) &&
        p_insect->isUnder(where))
      return true;
  return false;
}

} // namespace

AutoPlayer::AutoPlayer(Profile init_profile, unsigned seed)
    : profile(init_profile), chance(seed), pointer(displayCenter()) {
}

void AutoPlayer::play(int) {
  if (is_pressing) {
    gw::releaseMouse(gw::Mouse::LEFT, pointer);
    is_pressing = false;
    return;
  }
  leaveMenu();
  switch (profile) {
  case Profile::skilled:
    playWell();
    break;
  case Profile::random:
    playRandomly();
    break;
  case Profile::greedy:
    playGreedily();
    break;
  case Profile::hostile:
    playHostilely();
    break;
  }
}

void AutoPlayer::leaveMenu() {
  const auto *p_menu = findFirst<GameStart>();
  menu_steps = p_menu && p_menu->getMenuActive() ? menu_steps + 1 : 0;
  if (menu_steps > MENU_STEPS) {
    gw::pressKey(gw::Keyboard::P);
    gw::releaseKey(gw::Keyboard::P);
  }
}

void AutoPlayer::playWell() {
  const Insect *p_bee = findNearest(pointer, isBee);
  if (p_bee && distance(pointer, p_bee->getPosition()) < BEE_NEAR) {
    goFor(*p_bee);
    return;
  }
  const Insect *p_target = findTarget();
  if (!p_target)
    return;
  const Insect *p_fitting = findNearest(pointer, [p_target](const Insect &insect) {
    return insect.getType() == p_target->getType() &&
           insect.getColor() == p_target->getColor();
  });
  if (p_fitting)
    goFor(*p_fitting);
  else
    moveTowards(displayCenter());
}

void AutoPlayer::playRandomly() {
  moveTowards(drawPosition());
  if (drawNumber(4) == 0)
    pressAt(pointer);
}

void AutoPlayer::playGreedily() {
  if (const Insect *p_insect = findNearest(pointer, [](const Insect &) { return true; }))
    goFor(*p_insect);
}

void AutoPlayer::playHostilely() {
  const std::vector<Insect *> insects = allInsects();
  for (int i = drawNumber(8); i >= 0; i--) {
    gw::Vector where = drawPosition();
    where.setX(where.getX() + static_cast<float>(drawNumber(41) - 20));
    if (!insects.empty() && drawNumber(2) == 0)
      where =
          insects[static_cast<std::size_t>(drawNumber(static_cast<int>(insects.size())))]
              ->getPosition();
    // Both also those that the engine does not know.
    const auto button =
        static_cast<gw::Mouse::Button>(drawNumber(gw::Mouse::MIDDLE + 2) - 1);
    const auto key =
        static_cast<gw::Keyboard::Key>(drawNumber(gw::Keyboard::PAUSE + 2) - 1);
    switch (drawNumber(6)) {
    case 0:
      gw::moveMouse(where);
      break;
    case 1:
      gw::releaseMouse(button, where);
      break;
    case 2:
      if (key != gw::Keyboard::Q)
        gw::pressKey(key);
      break;
    case 3:
      gw::releaseKey(key);
      break;
    default:
      gw::pressMouse(button, where);
    }
  }
}

void AutoPlayer::goFor(const Insect &insect) {
  moveTowards(insect.getPosition());
  const bool is_there = distance(pointer, insect.getPosition()) < 1;
  if (is_there && (profile == Profile::greedy || !hitsOthers(pointer, insect)))
    pressAt(pointer);
}

void AutoPlayer::moveTowards(gw::Vector goal) {
  gw::Vector way = goal - pointer;
  if (way.getMagnitude() > REACH) {
    way.normalize();
    way.scale(REACH);
  }
  pointer = pointer + way;
  gw::moveMouse(pointer);
}

void AutoPlayer::pressAt(gw::Vector where) {
  gw::pressMouse(gw::Mouse::LEFT, where);
  is_pressing = true;
}

int AutoPlayer::drawNumber(int bound) {
  return static_cast<int>(chance() % static_cast<unsigned>(bound));
}

/// One number after the other: compilers differ in the order in which they look at
/// the arguments of a call.
gw::Vector AutoPlayer::drawPosition() {
  const gw::DisplayManager &display = gw::DisplayManager::getInstance();
  const int x = drawNumber(display.getHorizontal() + 1);
  const int y = drawNumber(display.getVertical() + 1);
  return gw::Vector(static_cast<float>(x), static_cast<float>(y));
}
