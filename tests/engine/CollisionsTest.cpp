#include "EngineTest.h"
#include "utility.h"

#include <cmath>
#include <random>

namespace {

using gw::Vector;

/// Objects whose handlers create, mark, move, resize and change at random.
class CollisionsTest : public EngineTest {
protected:
  int below(int end) { return static_cast<int>(chance() % static_cast<unsigned>(end)); }

  /// Mostly near others and on quarters of cells, so that edges touch; at times far
  /// out, or no number.
  Vector place() {
    const Vector odd[] = {{1e6f, -1e6f}, {65535.9f, 8}, {1e30f, 0}, {NAN, 3}, {2048, 24}};
    if (below(40) == 0)
      return odd[below(5)];
    const auto x = static_cast<float>(below(400));
    return {x / 4 - 20, static_cast<float>(below(200)) / 4};
  }

  /// Mostly of a sprite's size; at times wider than everything, empty or turned over.
  gw::Box box() {
    const float sizes[] = {9, 5, 1, 0, 16, 16.25f, 8, 8.25f, 40, -3, 5000, 1e6f};
    const float width = sizes[below(below(4) == 0 ? 12 : 3)];
    const float height = sizes[below(below(4) == 0 ? 12 : 3)];
    return {Vector(-width / 2, -height / 2), width, height};
  }

  void change(gw::Object *p_o, int what) {
    if (what == 0)
      p_o->setPosition(place());
    if (what == 1)
      p_o->setBox(box());
    if (what == 2) {
      const Vector where = place();
      p_o->setVelocity(Vector(where.getX() / 20 - 2, where.getY() / 12 - 2));
    }
    if (what == 3)
      p_o->setCollisionResponse(static_cast<gw::CollisionResponse>(below(3)));
    if (what == 4)
      world().markForDelete(p_o);
    if ((what == 5 || what == 6) && world().getAllObjects().getCount() < 100)
      create();
    if (what == 7)
      expectAllFound(p_o, place());
  }

  void create() {
    auto *p_o = new Recorder;
    for (int what = 0; what < 4; what++)
      change(p_o, what);
    p_o->onEvent = [this](const gw::Event &) {
      const gw::ObjectList objects = world().getAllObjects();
      change(objects[below(objects.getCount())], below(20));
    };
  }

  /// Compares with a look at every object, one after the other.
  void expectAllFound(const gw::Object *p_o, Vector where) {
    const gw::ObjectList found = world().getCollisions(p_o, where);
    int next = 0;
    for (const gw::Object *p_other : world().getAllObjects())
      if (p_other != p_o && p_other->registersCollisions() &&
          boxesIntersect(getWorldBox(p_o, where), getWorldBox(p_other))) {
        ASSERT_LT(next, found.getCount()) << p_other->getId() << " is not found";
        ASSERT_EQ(found[next++], p_other) << p_other->getId();
      }
    ASSERT_EQ(next, found.getCount());
    collisions += next;
  }

  std::minstd_rand chance;
  int collisions = 0;
};

} // namespace

TEST_F(CollisionsTest, AllAreFoundInListOrderWhateverHandlersDo) {
  for (int i = 0; i < 30; i++)
    create();
  for (int i = 0; i < 200 && !HasFatalFailure(); i++) {
    world().update();
    for (const gw::Object *p_o : world().getAllObjects())
      expectAllFound(p_o, below(2) == 0 ? p_o->getPosition() : place());
  }
  EXPECT_GT(collisions, 10000);
}
