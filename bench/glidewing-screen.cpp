/// What a full screen and a step of play take, in a real window. Started by
/// bench/table.py in the run directory; needs a display.

#include "Butterfly.h"
#include "DisplayManager.h"
#include "EventKeyboard.h"
#include "EventPin.h"
#include "GameManager.h"
#include "Glidewing.h"
#include "LogManager.h"
#include "Random.h"
#include "Screen.h"
#include "Sequence.h"
#include "SoldTag.h"
#include "WorldManager.h"
#include "gameUtility.h"
#include "tazlet.h"
#include "timeSteps.h"

namespace {

constexpr int FLYING = 20; ///< insects
constexpr int PINNED = 7;
constexpr int TARGETS = 6;

float randomBetween(float low, float high) {
  return low + (high - low) * static_cast<float>(gw::rand()) / 32767.f;
}

Insect *addInsect() {
  Insect *p_insect = gw::rand() % 2 == 0 ? static_cast<Insect *>(new Butterfly)
                                         : static_cast<Insect *>(new Glidewing);
  p_insect->setColor(INSECT_COLORS[static_cast<std::size_t>(gw::rand()) % 5]);
  p_insect->setTintedSprite();
  p_insect->setPosition(gw::Vector(randomBetween(10, 95), randomBetween(12, 38)));
  p_insect->setVelocity(gw::Vector(randomBetween(-1.4f, 1.4f), randomBetween(-.9f, .9f)));
  return p_insect;
}

/// Replaces what has left the field, and takes out what the spawners have added, so
/// that every step has as much to do.
void keepFlying() {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  int flying = 0;
  for (gw::Object *p_o : world.getAllObjects()) {
    const bool flies = dynamic_cast<Insect *>(p_o) && p_o->getSpeed() > 0;
    if (flies && !world.isMarkedForDelete(p_o) && ++flying > FLYING)
      world.markForDelete(p_o);
  }
  for (; flying < FLYING; flying++)
    addInsect();
}

/// The busiest that play gets, always the same: all there is, a full row, a board
/// about to overflow.
void startBusyGame() {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  world.shutDown();
  world.startUp();
  gw::srand(1);
  populateGame();
  gw::EventKeyboard key;
  key.setKey(gw::Keyboard::P);
  key.setKeyboardAction(gw::KEY_PRESSED);
  world.onEvent(&key);
  // Sells the first row, which takes off the board what is there already.
  findFirst<Sequence>()->generateSequence(TARGETS);
  world.markForDelete(findFirst<SoldTag>());
  for (int i = 0; i < PINNED; i++) {
    Insect *p_insect = addInsect();
    p_insect->setPinned(true);
    p_insect->setColor(gw::YELLOW); // matches no target
    const EventPin pin(p_insect);
    world.onEvent(&pin);
  }
}

/// A step of the game loop, all but its sleep.
void Step(benchmark::State &state) {
  startBusyGame();
  bench::timeSteps(
      state, [] { gw::GameManager::getInstance().runStep(gw::NEVER_SLEEP); }, keepFlying);
  state.counters["objects"] = gw::WorldManager::getInstance().getAllObjects().getCount();
}
BENCHMARK(Step)->UseManualTime();

/// The same without a window, as a game that runs headless.
void stepWithoutWindow(benchmark::State &state, bool is_text_kept) {
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  display.shutDown();
  display.setTextKept(is_text_kept);
  Step(state);
  display.setTextKept(false);
  display.startUp();
}

/// Nothing is drawn.
void StepHeadless(benchmark::State &state) {
  stepWithoutWindow(state, false);
}
BENCHMARK(StepHeadless)->UseManualTime();

/// What is drawn is kept as text.
void StepText(benchmark::State &state) {
  stepWithoutWindow(state, true);
}
BENCHMARK(StepText)->UseManualTime();

/// Every cell another character and colour, shown.
void FullScreen(benchmark::State &state) {
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  int frame = 0;
  const auto draw_frame = [&] {
    for (int y = 0; y < bench::ROWS; y++)
      for (int x = 0; x < bench::COLUMNS; x++)
        display.drawCh(gw::Vector(static_cast<float>(x), static_cast<float>(y)),
                       bench::characterAt(x, y, frame), bench::colorAt(x, y, frame));
    display.swapBuffers();
    frame++;
  };
  bench::timeSteps(state, draw_frame);
}
BENCHMARK(FullScreen)->UseManualTime();

} // namespace

int main(int argc, char **argv) {
  benchmark::Initialize(&argc, argv);
  gw::GameManager &game = gw::GameManager::getInstance();
  if (game.startUp() != 0)
    return 1;
  gw::LogManager::getInstance().setLogLevel(gw::ALL);
  gw::LogManager::getInstance().setFlush(true);
  loadResources();
  benchmark::RunSpecifiedBenchmarks();
  game.shutDown();
  return 0;
}
