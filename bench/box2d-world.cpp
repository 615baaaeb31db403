/// The peer of glidewing-world: the same boxes moved by Box2D. Started by
/// bench/table.py.
///
/// Everything that the engine does not do is off, so that Box2D is as fast as it
/// gets: boxes are sensors, which are found but not pushed apart; nothing rotates,
/// falls or sleeps, and nothing is watched for passing through walls. Bodies are
/// dynamic, because others hear nothing of each other. A cell is a metre and a step a
/// second: sizes that Box2D is made for, and slower than the two metres a step that it
/// allows. It tells when an overlap begins and ends, where the engine tells of it in
/// every step.

#include "Field.h"
#include "timeSteps.h"

#include <box2d/box2d.h>

namespace {

class PairCounter : public b2ContactListener {
public:
  void BeginContact(b2Contact *) override { pairs++; }
  void EndContact(b2Contact *) override { pairs--; }

  int pairs = 0; ///< overlapping now
};

void addBody(b2World &world, const bench::Mover &mover) {
  b2BodyDef body;
  body.type = b2_dynamicBody;
  body.fixedRotation = true;
  body.position.Set(mover.x, mover.y);
  body.linearVelocity.Set(mover.velocity_x, mover.velocity_y);
  b2PolygonShape box;
  box.SetAsBox(bench::BOX_WIDTH / 2, bench::BOX_HEIGHT / 2);
  b2FixtureDef fixture;
  fixture.shape = &box;
  fixture.density = 1;
  fixture.isSensor = true;
  world.CreateBody(&body)->CreateFixture(&fixture);
}

void turnBack(b2Body &body, const bench::Field &field) {
  const b2Vec2 position = body.GetPosition();
  const b2Vec2 velocity = body.GetLinearVelocity();
  const bool turn_x = bench::isLeaving(position.x, velocity.x, field.width);
  const bool turn_y = bench::isLeaving(position.y, velocity.y, field.height);
  if (turn_x || turn_y)
    body.SetLinearVelocity(
        {turn_x ? -velocity.x : velocity.x, turn_y ? -velocity.y : velocity.y});
}

/// A step of the world, with as many boxes as the argument says.
void Step(benchmark::State &state) {
  const bench::Field field = bench::makeField(static_cast<int>(state.range(0)));
  PairCounter counter;
  b2World world({0, 0});
  world.SetAllowSleeping(false);
  world.SetContinuousPhysics(false);
  world.SetContactListener(&counter);
  for (const bench::Mover &mover : field.movers)
    addBody(world, mover);

  int step_count = 0;
  int pairs = 0;
  const auto step = [&] {
    world.Step(1, 1, 1);
    if (++step_count == bench::WARM_UP)
      pairs = counter.pairs;
  };
  const auto prepare = [&] {
    for (b2Body *p_body = world.GetBodyList(); p_body; p_body = p_body->GetNext())
      turnBack(*p_body, field);
  };
  bench::timeSteps(state, step, prepare);
  state.counters["pairs"] = pairs;
}
BENCHMARK(Step)->Arg(35)->Arg(100)->Arg(1000)->Arg(10000)->UseManualTime();

} // namespace

BENCHMARK_MAIN();
