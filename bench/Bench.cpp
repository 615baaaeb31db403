/// What a frame and a step cost, in a real window. Run by scripts/bench, in the
/// run directory; needs a display.

#include "Butterfly.h"
#include "DisplayManager.h"
#include "EventKeyboard.h"
#include "EventPin.h"
#include "EventStep.h"
#include "GameManager.h"
#include "Glidewing.h"
#include "InputManager.h"
#include "LogManager.h"
#include "Random.h"
#include "Sequence.h"
#include "WorldManager.h"
#include "gameUtility.h"
#include "tazlet.h"

#include <benchmark/benchmark.h>

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
  setTintedSprite(*p_insect);
  p_insect->setPosition(gw::Vector(randomBetween(10, 95), randomBetween(12, 38)));
  p_insect->setVelocity(gw::Vector(randomBetween(-1.4f, 1.4f), randomBetween(-.9f, .9f)));
  return p_insect;
}

/// Replaces what has left the field, so that every step has as much to do.
void keepFlying(std::vector<int> &ids) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  const gw::ObjectList objects = world.getAllObjects();
  int alive = 0;
  for (int i = 0; i < objects.getCount(); i++)
    for (int id : ids)
      alive += objects[i]->getId() == id ? 1 : 0;
  for (; alive < FLYING; alive++)
    ids.push_back(addInsect()->getId());
}

/// The busiest that play gets: all there is, a full row, a board about to overflow.
void startBusyGame() {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  gw::EventKeyboard p_key;
  p_key.setKey(gw::Keyboard::P);
  p_key.setKeyboardAction(gw::KEY_PRESSED);
  world.onEvent(&p_key);
  for (int i = 0; i < PINNED; i++) {
    Insect *p_insect = addInsect();
    p_insect->setPinned(true);
    p_insect->setColor(gw::YELLOW); // matches no target
    const EventPin pin(p_insect);
    world.onEvent(&pin);
  }
  findFirst<Sequence>("Sequence")->generateSequence(TARGETS);
}

/// A step of the game loop, all but its sleep.
void StepOfPlay(benchmark::State &state) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  std::vector<int> flying;
  int step_count = 0;
  for (auto _ : state) {
    state.PauseTiming();
    keepFlying(flying);
    state.ResumeTiming();
    const gw::EventStep step(step_count++);
    world.onEvent(&step);
    gw::InputManager::getInstance().getInput();
    world.update();
    world.draw();
    gw::DisplayManager::getInstance().swapBuffers();
  }
  state.counters["objects"] = world.getAllObjects().getCount();
}
BENCHMARK(StepOfPlay)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(5);

/// Every cell another character and colour, shown.
void FullScreen(benchmark::State &state) {
  gw::DisplayManager &display = gw::DisplayManager::getInstance();
  int shift = 0;
  for (auto _ : state) {
    shift++;
    for (int y = 0; y < display.getVertical(); y++)
      for (int x = 0; x < display.getHorizontal(); x++)
        display.drawCh(gw::Vector(static_cast<float>(x), static_cast<float>(y)),
                       static_cast<char>('!' + (x + y * 7 + shift) % 94),
                       static_cast<gw::Color>((x + y + shift) % 8));
    display.swapBuffers();
  }
}
BENCHMARK(FullScreen)->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(5);

} // namespace

int main(int argc, char **argv) {
  benchmark::Initialize(&argc, argv);
  gw::GameManager &game = gw::GameManager::getInstance();
  if (game.startUp() != 0)
    return 1;
  gw::LogManager::getInstance().setLogLevel(gw::ALL);
  gw::LogManager::getInstance().setFlush(true);
  loadResources();
  populateGame();
  startBusyGame();
  benchmark::RunSpecifiedBenchmarks();
  game.shutDown();
  return 0;
}
