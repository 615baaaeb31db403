/// What a world of many objects takes, in time and in memory. Started by
/// bench/table.py in the run directory; needs no display.

#include "EventCollision.h"
#include "EventStep.h"
#include "Field.h"
#include "GameManager.h"
#include "LogManager.h"
#include "Object.h"
#include "ResourceManager.h"
#include "WorldManager.h"
#include "timeSteps.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

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
    for (gw::Object *p_o : objects)
      turnBack(*p_o, field);
    collisions_heard = 0;
  };
  bench::timeSteps(state, step, prepare);
  state.counters["pairs"] = static_cast<double>(pairs);
  world.shutDown();
}
BENCHMARK(Update)->Arg(100)->Arg(1000)->Arg(10000)->UseManualTime();

/// Marking all objects and the update that deletes them.
void Delete(benchmark::State &state) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  world.startUp();
  const bench::Field field = bench::makeField(static_cast<int>(state.range(0)));
  gw::ObjectList objects;
  const auto prepare = [&] {
    for (const bench::Mover &mover : field.movers)
      new FieldObject(mover);
    objects = world.getAllObjects();
  };
  const auto mark_and_delete = [&] {
    for (gw::Object *p_o : objects)
      world.markForDelete(p_o);
    world.update();
  };
  bench::timeSteps(state, mark_and_delete, prepare);
  if (!world.getAllObjects().isEmpty())
    state.SkipWithError("objects are left");
  world.shutDown();
}
BENCHMARK(Delete)->Arg(10000)->Arg(40000)->UseManualTime();

constexpr int MANY = 10000;
constexpr int KINDS = 100;

/// Too long to be kept inside a string, and different only at the end.
std::string kindOf(int number) {
  return "an object of a kind whose name is long, number " +
         std::to_string(number % KINDS);
}

/// All objects of one kind among many.
void FindByType(benchmark::State &state) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  world.startUp();
  for (int i = 0; i < MANY; i++)
    (new gw::Object)->setType(kindOf(i));
  const std::string wanted = kindOf(1);
  int found = 0;
  for (auto _ : state)
    found = world.getAllObjectsOfType(wanted).getCount();
  if (found != MANY / KINDS)
    state.SkipWithError("not all were found");
  world.shutDown();
}
BENCHMARK(FindByType);

/// The same among structures of the same size, in a plain loop.
void FindByTypePlain(benchmark::State &state) {
  struct Named {
    char before[16] = {};
    std::string type;
    char after[sizeof(gw::Object) - 16 - sizeof(std::string)] = {};
  };
  std::vector<std::unique_ptr<Named>> all;
  for (int i = 0; i < MANY; i++) {
    all.push_back(std::make_unique<Named>());
    all.back()->type = kindOf(i);
  }
  const std::string wanted = kindOf(1);
  for (auto _ : state) {
    std::vector<const Named *> found;
    for (const auto &named : all)
      if (named->type == wanted)
        found.push_back(named.get());
    benchmark::DoNotOptimize(found.data());
  }
}
BENCHMARK(FindByTypePlain);

/// An event to many objects that do nothing with it: as the engine delivers it, or in a
/// plain loop over the same objects.
void broadcast(benchmark::State &state, bool is_plain) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  world.startUp();
  std::vector<gw::Object *> objects(MANY);
  for (gw::Object *&p_o : objects)
    p_o = new gw::Object;
  const gw::EventStep event;
  for (auto _ : state)
    if (is_plain)
      for (gw::Object *p_o : objects)
        p_o->eventHandler(&event);
    else
      world.onEvent(&event);
  world.shutDown();
}

void Broadcast(benchmark::State &state) {
  broadcast(state, false);
}
BENCHMARK(Broadcast);

void BroadcastPlain(benchmark::State &state) {
  broadcast(state, true);
}
BENCHMARK(BroadcastPlain);

/// A line of the log that reaches the operating system at once.
void LogLine(benchmark::State &state) {
  gw::LogManager &log = gw::LogManager::getInstance();
  log.setFlush(true);
  int number = 0;
  for (auto _ : state)
    log.writeLog(gw::INFO, "Insect with object id %d was pinned.", number++);
}
BENCHMARK(LogLine)->Iterations(100000);

/// The same line with what the language has.
void LogLinePlain(benchmark::State &state) {
  std::FILE *p_file = std::fopen("plain.log", "w");
  int number = 0;
  for (auto _ : state) {
    std::fprintf(p_file, "[%s] %8s: Insect with object id %d was pinned.\n", "12:34:56",
                 "INFO", number++);
    std::fflush(p_file);
  }
  std::fclose(p_file);
  std::remove("plain.log");
}
BENCHMARK(LogLinePlain)->Iterations(100000);

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
