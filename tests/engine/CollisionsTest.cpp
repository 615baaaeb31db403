#include "EngineTest.h"
#include "EventCollision.h"
#include "EventOut.h"
#include "utility.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using gw::Vector;

/// A world of random objects whose handlers move, resize, create and mark at random;
/// moved by the engine, or plainly: by looking at everything, one after the other.
/// Chance comes out the same as long as the same is heard in the same order.
class Scene {
public:
  Scene(unsigned seed, bool init_is_plain) : is_plain(init_is_plain), chance(seed) {
    for (int i = 0; i < 30; i++)
      create();
  }

  void update();
  void onEvent(gw::Object *p_self, const gw::Event *p_e);

  std::vector<std::string> record; ///< all that was heard, and where it led to

private:
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

  Vector velocity() {
    const auto x = static_cast<float>(below(17) - 8);
    return {x / 4, static_cast<float>(below(9) - 4) / 4};
  }

  gw::CollisionResponse response() {
    return static_cast<gw::CollisionResponse>(below(3));
  }

  void create();
  void mark(gw::Object *p_o);
  void move(gw::Object *p_o, Vector where);
  void movePlainly(gw::Object *p_o, Vector where);

  gw::WorldManager &world = gw::WorldManager::getInstance();
  bool is_plain;
  std::minstd_rand chance;
  int created = 0;
  bool is_moving = false;           ///< something, in a handler
  std::vector<gw::Object *> marked; ///< when plain
};

struct Meddler : gw::Object {
  explicit Meddler(Scene &init_scene) : scene(init_scene) {}
  int eventHandler(const gw::Event *p_e) override { return scene.onEvent(this, p_e), 0; }
  Scene &scene;
};

void Scene::create() {
  auto *p_o = new Meddler(*this);
  p_o->setType(std::to_string(created++));
  p_o->setPosition(place());
  p_o->setBox(box());
  p_o->setVelocity(velocity());
  p_o->setCollisionResponse(response());
}

void Scene::onEvent(gw::Object *p_self, const gw::Event *p_e) {
  std::string what = p_self->getType() + " hears " + p_e->getType();
  if (const auto *p_collision = dynamic_cast<const gw::EventCollision *>(p_e))
    what += ": " + p_collision->getObject1()->getType() + " on " +
            p_collision->getObject2()->getType() + " at " +
            testing::PrintToString(xy(p_collision->getPosition()));
  record.push_back(what);
  const gw::ObjectList objects = world.getAllObjects();
  gw::Object *p_any = objects[below(objects.getCount())];
  switch (below(20)) {
  case 0:
    return p_any->setPosition(place());
  case 1:
    return p_any->setBox(box());
  case 2:
    return p_any->setVelocity(velocity());
  case 3:
    return static_cast<void>(p_any->setCollisionResponse(response()));
  case 4:
  case 5:
    return objects.getCount() < 100 ? create() : void();
  case 6:
    return mark(p_any);
  case 7:
    if (!is_moving) {
      is_moving = true;
      move(p_any, place());
      is_moving = false;
    }
  }
}

void Scene::update() {
  if (is_plain) {
    for (gw::Object *p_o : std::exchange(marked, {}))
      delete p_o;
    for (int i = 0; i < world.getAllObjects().getCount(); i++) {
      gw::Object *p_o = world.getAllObjects()[i];
      if (xy(p_o->predictPosition()) != xy(p_o->getPosition()))
        movePlainly(p_o, p_o->predictPosition());
    }
  } else {
    world.update();
  }
  const gw::ObjectList objects = world.getAllObjects();
  for (int i = 0; i < objects.getCount(); i++)
    record.push_back(objects[i]->getType() + " is at " +
                     testing::PrintToString(xy(objects[i]->getPosition())));
}

void Scene::mark(gw::Object *p_o) {
  if (!is_plain)
    world.markForDelete(p_o);
  else if (std::find(marked.begin(), marked.end(), p_o) == marked.end())
    marked.push_back(p_o);
}

void Scene::move(gw::Object *p_o, Vector where) {
  if (is_plain)
    movePlainly(p_o, where);
  else
    world.moveObject(p_o, where);
}

void Scene::movePlainly(gw::Object *p_o, Vector where) {
  const gw::ObjectList objects = world.getAllObjects();
  std::vector<gw::Object *> touched;
  for (int i = 0; i < objects.getCount() && p_o->registersCollisions(); i++)
    if (objects[i] != p_o && objects[i]->registersCollisions() &&
        boxesIntersect(getWorldBox(p_o, where), getWorldBox(objects[i])))
      touched.push_back(objects[i]);
  bool is_blocked = false;
  for (gw::Object *p_other : touched) {
    const gw::EventCollision collision(p_o, p_other, where);
    p_o->eventHandler(&collision);
    p_other->eventHandler(&collision);
    is_blocked |= p_o->getCollisionResponse() == gw::BLOCK &&
                  p_other->getCollisionResponse() == gw::BLOCK;
  }
  if (is_blocked)
    return;
  const auto isInside = [](Vector at) {
    return at.getX() >= 0 && at.getX() <= 128 && at.getY() >= 0 && at.getY() <= 48;
  };
  const gw::EventOut out;
  if (!isInside(where) && isInside(p_o->getPosition()))
    p_o->eventHandler(&out);
  p_o->setPosition(where);
}

class CollisionsTest : public EngineTest {};

} // namespace

TEST_F(CollisionsTest, TheSameIsToldAsWhenEverythingIsLookedAtWhateverHandlersDo) {
  for (unsigned seed = 1; seed <= 6; seed++) {
    std::vector<std::string> records[2];
    for (bool is_plain : {false, true}) {
      Scene scene(seed, is_plain);
      for (int i = 0; i < 60; i++)
        scene.update();
      gw::WorldManager::getInstance().shutDown();
      gw::WorldManager::getInstance().startUp();
      records[is_plain] = scene.record;
    }
    const auto &[found, expected] = records;
    const auto collisions =
        std::count_if(expected.begin(), expected.end(), [](const std::string &line) {
          return line.find("collision") != std::string::npos;
        });
    ASSERT_GT(collisions, 5000);
    ASSERT_EQ(found.size(), expected.size());
    const auto [p_found, p_expected] =
        std::mismatch(found.begin(), found.end(), expected.begin());
    if (p_found != found.end())
      FAIL() << "seed " << seed << ": " << *p_found << " instead of " << *p_expected;
  }
}
