/// What a world of many objects takes, in time and in memory. Started by
/// bench/table.py in the run directory; needs no display.

#include "EventCollision.h"
#include "Field.h"
#include "GameManager.h"
#include "Object.h"
#include "ResourceManager.h"
#include "WorldManager.h"
#include "timeSteps.h"

#include <unistd.h>

#include <fstream>

namespace {

long long collisions_heard = 0;

class FieldObject : public gw::Object {
public:
  explicit FieldObject(const bench::Mover &mover) {
    setBox(gw::Box(gw::Vector(-bench::BOX_WIDTH / 2, -bench::BOX_HEIGHT / 2),
                   bench::BOX_WIDTH, bench::BOX_HEIGHT));
    setCollisionResponse(gw::OVERLAP);
    setPosition(gw::Vector(mover.x, mover.y));
    setVelocity(gw::Vector(mover.velocity_x, mover.velocity_y));
  }

  int eventHandler(const gw::Event *p_e) override {
    if (p_e->getType() != gw::COLLISION_EVENT)
      return 0;
    collisions_heard++;
    return 1;
  }
};

void turnBack(gw::Object &object, const bench::Field &field) {
  const gw::Vector position = object.getPosition();
  const gw::Vector velocity = object.getVelocity();
  const bool turn_x = bench::isLeaving(position.getX(), velocity.getX(), field.width);
  const bool turn_y = bench::isLeaving(position.getY(), velocity.getY(), field.height);
  if (turn_x || turn_y)
    object.setVelocity(gw::Vector(turn_x ? -velocity.getX() : velocity.getX(),
                                  turn_y ? -velocity.getY() : velocity.getY()));
}

/// The world's update, with as many objects as the argument says.
void Update(benchmark::State &state) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  world.startUp();
  const bench::Field field = bench::makeField(static_cast<int>(state.range(0)));
  for (const bench::Mover &mover : field.movers)
    new FieldObject(mover);
  const gw::ObjectList objects = world.getAllObjects();

  long long step_count = 0;
  long long pairs = 0;
  const auto step = [&] {
    world.update();
    // Both of a pair move, and each time both hear of it.
    if (++step_count == bench::WARM_UP)
      pairs = collisions_heard / 4;
  };
  const auto prepare = [&] {
    for (int i = 0; i < objects.getCount(); i++)
      turnBack(*objects[i], field);
    collisions_heard = 0;
  };
  bench::timeSteps(state, step, prepare);
  state.counters["pairs"] = static_cast<double>(pairs);
  world.shutDown();
}
BENCHMARK(Update)->Arg(100)->Arg(1000)->Arg(10000)->UseManualTime();

double residentBytes() {
  long long size = 0;
  long long resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

/// What objects with one of the game's sprites add to the engine, including what the
/// world keeps to move them.
void Memory(benchmark::State &state) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  gw::ResourceManager &resources = gw::ResourceManager::getInstance();
  world.startUp();
  if (resources.loadSprite("tazlet/sprites/butterfly.txt", "Butterfly") != 0)
    state.SkipWithError("no sprite");
  const bench::Field field = bench::makeField(10000);
  for (auto _ : state) {
    const double before = residentBytes();
    for (const bench::Mover &mover : field.movers)
      (new FieldObject(mover))->setSprite("Butterfly");
    world.update();
    state.counters["bytes"] = residentBytes() - before;
  }
  world.shutDown();
}
BENCHMARK(Memory)->Iterations(1);

} // namespace

int main(int argc, char **argv) {
  benchmark::Initialize(&argc, argv);
  gw::GameManager::getInstance().startUpHeadless();
  benchmark::RunSpecifiedBenchmarks();
  gw::GameManager::getInstance().shutDown();
}
