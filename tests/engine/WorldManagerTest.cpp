#include "EngineTest.h"
#include "EventCollision.h"

#include <memory>

namespace {

using gw::BLOCK;
using gw::CollisionResponse;
using gw::IGNORE;
using gw::OVERLAP;
using gw::Vector;

class WorldManagerTest : public EngineTest {
protected:
  template <class Kind = Recorder>
  Kind *add(const std::string &name, Vector where = Vector(64, 24),
            CollisionResponse response = IGNORE) {
    auto *p_o = new Kind;
    p_o->p_journal = &journal;
    p_o->setType(name);
    p_o->setPosition(where);
    p_o->setCollisionResponse(response);
    return p_o;
  }

  /// What happens meanwhile.
  Lines during(const std::function<void()> &action) {
    journal.clear();
    action();
    return journal;
  }
  Lines update() {
    return during([] { world().update(); });
  }
  Lines journalOfStep() {
    return during([] { step(); });
  }

  Lines journal;
};

} // namespace

TEST_F(WorldManagerTest, ACollisionIsToldToMoverAndOtherAndOnlyTwoBlockersBlock) {
  const auto expect = [&](CollisionResponse mover, CollisionResponse other,
                          const std::string &changing, CollisionResponse changed,
                          bool moved) {
    world().shutDown();
    world().startUp();
    Recorder *p_mover = add("mover", {10, 10}, mover);
    Recorder *p_other = add("other", {12, 10}, other);
    Recorder *p_changing = changing == "mover" ? p_mover : p_other;
    p_changing->onEvent = [&](const gw::Event &) {
      p_changing->setCollisionResponse(changed); // counts at once
    };
    p_mover->setVelocity({1, 0}); // the boxes will just touch
    const Lines heard = {"mover collision", "other collision"};
    EXPECT_EQ(update(), mover == IGNORE || other == IGNORE ? Lines{} : heard);
    EXPECT_EQ(p_mover->getPosition().getX(), moved ? 11 : 10)
        << mover << other << changed;
  };
  for (CollisionResponse mover : {BLOCK, OVERLAP, IGNORE})
    for (CollisionResponse other : {BLOCK, OVERLAP, IGNORE})
      expect(mover, other, "other", other, mover != BLOCK || other != BLOCK);
  expect(BLOCK, BLOCK, "other", OVERLAP, true);
  expect(BLOCK, BLOCK, "mover", IGNORE, true);
  expect(OVERLAP, BLOCK, "mover", BLOCK, false);
  expect(BLOCK, OVERLAP, "other", BLOCK, false);
}

TEST_F(WorldManagerTest, EveryCollisionIsToldInListOrderEvenWhenTheFirstBlocks) {
  add("a", {129, 24}, BLOCK);
  Recorder *p_mover = add("mover", {128, 24}, BLOCK);
  const Recorder *p_bystander = add("far", {131, 24}, BLOCK);
  add("b", {130, 25}, OVERLAP);
  Lines partners;
  p_mover->onEvent = [&](const gw::Event &event) {
    const auto &collision = dynamic_cast<const gw::EventCollision &>(event);
    EXPECT_EQ(collision.getObject1(), p_mover);
    EXPECT_EQ(xy(collision.getPosition()), xy({129, 24})) << "where it wants to go";
    EXPECT_EQ(collision.getOther(p_mover), collision.getObject2());
    EXPECT_EQ(collision.getOther(collision.getObject2()), p_mover);
    EXPECT_EQ(collision.getOther(p_bystander), nullptr);
    partners.push_back(collision.getObject2()->getType());
  };
  p_mover->setVelocity({1, 0});
  EXPECT_EQ(update(),
            (Lines{"mover collision", "a collision", "mover collision", "b collision"}))
      << "and it is not told that it is out, because it stays";
  EXPECT_EQ(partners, (Lines{"a", "b"}));
  EXPECT_EQ(world().moveObject(p_mover, {129, 24}), -1);
  EXPECT_EQ(xy(p_mover->getPosition()), xy({128, 24}));
  EXPECT_EQ(world().getAllObjectsOfType("a").getCount(), 1);
  EXPECT_EQ(world().getAllObjectsOfType("A").getCount(), 0) << "letter case counts";
}

TEST_F(WorldManagerTest, LeavingTheWorldIsToldOncePerCrossing) {
  Recorder *p_mover = add("mover", {127, 24}, OVERLAP);
  add("bystander", {64, 24}, OVERLAP);
  const struct {
    Vector to;
    bool out = false;
  } walk[] = {{{128, 48}, false}, {{129, 24}, true},   {{130, 24}, false},
              {{0, 0}, false},    {{0, -0.5f}, true},  {{-5, 60}, false},
              {{1, 1}, false},    {{128, 48.5f}, true}};
  for (const auto &leg : walk) {
    const Vector from = p_mover->getPosition();
    p_mover->onEvent = [&](const gw::Event &) {
      EXPECT_EQ(xy(p_mover->getPosition()), xy(from)) << "told before it moves";
    };
    EXPECT_EQ(during([&] { EXPECT_EQ(world().moveObject(p_mover, leg.to), 0); }),
              leg.out ? Lines{"mover out"} : Lines{})
        << leg.to.getX() << ", " << leg.to.getY();
    EXPECT_EQ(xy(p_mover->getPosition()), xy(leg.to));
  }
}

TEST_F(WorldManagerTest, WhatAMoverSetsInItsHandlerIsLostAndInTheNextStepEventCounts) {
  Recorder *p_mover = add("mover", {127.5f, 10}, OVERLAP);
  p_mover->setVelocity({1, 0});
  p_mover->onEvent = [&](const gw::Event &event) {
    const gw::Vector position = p_mover->getPosition();
    if (event.getType() != "gw::step" || position.getX() > 128)
      p_mover->setPosition(position + Vector(-128, 0)); // around, to the other side
  };
  EXPECT_EQ(journalOfStep(), (Lines{"mover out", "mover drawn"}));
  EXPECT_EQ(p_mover->getPosition().getX(), 128.5f);
  EXPECT_EQ(journalOfStep(), Lines{"mover drawn"}) << "in again";
  EXPECT_EQ(p_mover->getPosition().getX(), 1.5f);
  Recorder *p_other = add("other", {3.5f, 10}, OVERLAP);
  p_other->onEvent = [&](const gw::Event &event) {
    if (event.getType() == "gw::collision")
      p_other->setPosition({50, 10});
  };
  step();
  EXPECT_EQ(p_mover->getPosition().getX(), 2.5f) << "set in the collision, and lost";
  EXPECT_EQ(p_other->getPosition().getX(), 50)
      << "of the one who does not move it counts";
}

TEST_F(WorldManagerTest, OnlyWhatChangesItsPositionCollides) {
  add("other", {10, 10}, OVERLAP);
  Recorder *p_mover = add("mover", {10, 10}, OVERLAP);
  EXPECT_EQ(update(), Lines{}) << "at rest";
  p_mover->setVelocity({-3, -4});
  EXPECT_EQ(update(), Lines{}) << "goes away";
  p_mover->setSpeed(-5);
  EXPECT_EQ(update(), (Lines{"mover collision", "other collision"})) << "comes back";
}

TEST_F(WorldManagerTest, WhatIsCreatedWhileThingsMoveMovesInTheSameUpdate) {
  add("other", {12, 10}, OVERLAP);
  Recorder *p_mover = add("mover", {10, 10}, OVERLAP), *p_new = nullptr;
  p_mover->setVelocity({1, 0});
  p_mover->onEvent = [&](const gw::Event &) {
    p_new = add("new", {14, 10}, OVERLAP);
    p_new->setVelocity({-1, 0});
  };
  EXPECT_EQ(update(), (Lines{"mover collision", "other collision", "new collision",
                             "other collision"}));
  EXPECT_EQ(xy(p_new->getPosition()), xy({13, 10}));
}

#ifndef GW_NO_ASSERTIONS
TEST_F(WorldManagerTest, ANullObjectEndsTheProgramWithALine) {
  EXPECT_DEATH(world().moveObject(nullptr, {1, 1}),
               "^WorldManager.cpp:[0-9]+: a null object is moved");
  EXPECT_DEATH(world().getCollisions(nullptr, {1, 1}),
               ": a null object collides with nothing");
}
#endif

TEST_F(WorldManagerTest, WhatIsMarkedGoesInTheNextUpdate) {
  Recorder *p_doomed = add("doomed");
  Recorder *p_other = add("other", {128, 24});
  p_doomed->onEvent = [&](const gw::Event &) {
    EXPECT_EQ(world().markForDelete(p_doomed), 0);
    EXPECT_EQ(world().markForDelete(p_doomed), 0) << "twice is harmless";
    EXPECT_EQ(world().markForDelete(nullptr), 0) << "and so is nothing";
  };
  EXPECT_EQ(journalOfStep(), (Lines{"doomed deleted", "other drawn"}))
      << "marked in the step event: gone before it is drawn";
  p_other->setVelocity({1, 0});
  p_other->onEvent = [&](const gw::Event &event) {
    if (event.getType() == "gw::out")
      world().markForDelete(p_other);
  };
  EXPECT_EQ(journalOfStep(), (Lines{"other out", "other drawn"}))
      << "marked while things move: still drawn";
  EXPECT_EQ(journalOfStep(), Lines{"other deleted"});
}

// The heap likes to give a new object the address of the one deleted before it.
TEST_F(WorldManagerTest, AMarkHoldsForANewObjectAtTheAddressOfADeletedOne) {
  struct Successor : Recorder {
    static void *operator new(std::size_t size) {
      static std::unique_ptr<char[]> place(new char[size]);
      return place.get();
    }
    static void operator delete(void *) {}
  };
  world().markForDelete(add<Successor>("first"));
  Recorder *p_second = add("second");
  p_second->onDelete = [&] { world().markForDelete(add<Successor>("third")); };
  world().markForDelete(p_second);
  EXPECT_EQ(update(), (Lines{"first deleted", "second deleted"}));
  EXPECT_EQ(update(), Lines{"third deleted"});
}

TEST_F(WorldManagerTest, WhatADestructorCreatesAtShutDownGoesToo) {
  add("a")->onDelete = [this] { add("b")->onDelete = [this] { add("c"); }; };
  add("d");
  world().shutDown();
  EXPECT_EQ(journal, (Lines{"a deleted", "d deleted", "b deleted", "c deleted"}));
  EXPECT_EQ(world().getAllObjects().getCount(), 0);
}

TEST_F(WorldManagerTest, DrawingGoesByAltitudeAndThenByTheList) {
  const std::pair<const char *, int> cases[] = {{"a", 4}, {"b", 0}, {"c", 2}, {"d", 3},
                                                {"e", 2}, {"f", 1}, {"g", 0}};
  for (const auto &[name, altitude] : cases)
    add(name)->setAltitude(altitude);
  EXPECT_EQ(journalOfStep(), (Lines{"b drawn", "g drawn", "f drawn", "c drawn", "e drawn",
                                    "d drawn", "a drawn"}));
  world().markForDelete(world().getAllObjects()[0]);
  EXPECT_EQ(journalOfStep(), (Lines{"a deleted", "g drawn", "b drawn", "f drawn",
                                    "c drawn", "e drawn", "d drawn"}))
      << "the last of the list moves into the gap";
}
