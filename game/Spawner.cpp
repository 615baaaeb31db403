#include "Spawner.h"

#include "Bee.h"
#include "Butterfly.h"
#include "EventClear.h"
#include "EventSlow.h"
#include "EventStep.h"
#include "EventUnslow.h"
#include "Glidewing.h"
#include "LogManager.h"
#include "Random.h"
#include "gameUtility.h"

namespace {

constexpr int BEE_ODDS = 17;              ///< one insect in so many is a bee
constexpr double PERIOD_CUT = 0.125;      ///< part of the period that a sale takes off
constexpr float SLOW_MULTIPLIER = 0.5f;   ///< during the slow-down
constexpr float MIN_COMPONENT = 0.4f;     ///< cells per step, in x and in y
constexpr float MAX_X = 1.4f;             ///< cells per step
constexpr float STEPS_PER_X = 11702.5f;   ///< random numbers per cell: 32767 / (2 MAX_X)
constexpr float MAX_Y = 0.9f;             ///< cells per step
constexpr float STEPS_PER_Y = 18203.889f; ///< 32767 / (2 MAX_Y)

/// A random number from -max to max that is not nearer to 0 than MIN_COMPONENT.
float drawComponent(float numbers_per_cell, float max) {
  float component = 0;
  do
    component = static_cast<float>(gw::rand()) / numbers_per_cell - max;
  while (component > -MIN_COMPONENT && component < MIN_COMPONENT);
  return component;
}

/// @param kind a random number that was drawn earlier
Insect *makeInsect(int kind, gw::Color color) {
  if (kind % BEE_ODDS == 0)
    return new Bee;
  Insect *p_insect = nullptr;
  if (gw::rand() % 2 == 0)
    p_insect = new Butterfly;
  else
    p_insect = new Glidewing;
  p_insect->setColor(color);
  p_insect->setTintedSprite();
  return p_insect;
}

} // namespace

Spawner::Spawner() {
  setType(TYPE);
  setSprite("Spawner");
  setCollisionResponse(gw::IGNORE);
  setPosition(displayCenter());
}

void Spawner::spawnInsect() {
  gw::LogManager &log = gw::LogManager::getInstance();
  const int kind = gw::rand();
  const float x = drawComponent(STEPS_PER_X, MAX_X);
  const float y = drawComponent(STEPS_PER_Y, MAX_Y);
  const auto color_index = static_cast<std::size_t>(gw::rand()) % INSECT_COLORS.size();
  playSound("BugSpawn");
  Insect *p_insect = makeInsect(kind, INSECT_COLORS[color_index]);
  p_insect->setPosition(getPosition());

  gw::Vector velocity(x, y);
  log.writeLog(gw::DEBUG, "Spawner initial insect velocity was (%f, %f)",
               static_cast<double>(velocity.getX()),
               static_cast<double>(velocity.getY()));
  velocity.scale(slowMultiplier);
  log.writeLog(gw::DEBUG,
               "Spawner made an insect with direction (%f, %f) from slow multipler %f",
               static_cast<double>(velocity.getX()), static_cast<double>(velocity.getY()),
               static_cast<double>(slowMultiplier));
  p_insect->setVelocity(velocity);
}

int Spawner::eventHandler(const gw::Event *p_e) {
  const std::string event_type = p_e->getType();
  if (event_type == gw::STEP_EVENT)
    countDown();
  else if (event_type == CLEAR_EVENT)
    shortenPeriod();
  else if (event_type == SLOW_EVENT)
    slowMultiplier = SLOW_MULTIPLIER;
  else if (event_type == UNSLOW_EVENT)
    slowMultiplier = 1;
  else
    return 0;
  return 1;
}

void Spawner::countDown() {
  spawnCountdown--;
  if (spawnCountdown > gw::rand() % spawnFrequency)
    return;
  spawnInsect();
  spawnCountdown = spawnFrequency;
}

/// Down to 1 and no further: the next step draws a number below the period.
void Spawner::shortenPeriod() {
  const auto shorter = static_cast<int>(spawnFrequency - PERIOD_CUT * spawnFrequency);
  spawnFrequency = shorter > 1 ? shorter : 1;
  gw::LogManager::getInstance().writeLog(
      gw::INFO,
      "Spawner::eventHandler(): Sequence cleared. Increasing Spawner spawn frequency. "
      "Spawn frequency is now %d",
      spawnFrequency);
}
