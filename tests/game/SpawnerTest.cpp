#include "RulesTest.h"

#include <filesystem>

namespace {

/// What a spawner has to make of its random numbers.
struct Spawn {
  explicit Spawn(Dice &dice) {
    const int kind = dice.roll();
    while (x > -0.4f && x < 0.4f)
      x = static_cast<float>(dice.roll()) / 11702.5f - 1.4f;
    while (y > -0.4f && y < 0.4f)
      y = static_cast<float>(dice.roll()) / 18203.889f - 0.9f;
    const char color = dice.rollColor();
    if (kind % 17 != 0)
      code = {dice.roll() % 2 == 0 ? 'B' : 'G', color};
  }

  std::string code = "bee";
  float x = 0, y = 0;
};

std::string print(float x, float y) {
  return "(" + std::to_string(x) + ", " + std::to_string(y) + ")";
}

} // namespace

class SpawnerTest : public RulesTest {
protected:
  static int objects() { return world().getAllObjects().getCount(); }

  static const Insect *newest() {
    return dynamic_cast<Insect *>(world().getAllObjects()[objects() - 1]);
  }
};

TEST_F(SpawnerTest, ASeedDecidesKindColorAndVelocityOfEveryInsect) {
  loadResources();
  (new Spawner)->setPosition({50, 20});
  std::set<std::string> seen;
  Lines expected_log;
  const Lines log = logOf([&] {
    (new Sequence)->generateSequence(6); // shares its pictures with what is spawned
    for (const float multiplier : {1.0f, 0.5f, 1.0f}) {
      gw::srand(2026);
      Dice dice{2026};
      for (int i = 0; i < 150; i++) {
        const Spawn spawn(dice);
        findFirst<Spawner>()->spawnInsect();
        const Insect *p_insect = newest();
        ASSERT_EQ(codeOf(p_insect), spawn.code) << "insect " << i;
        seen.insert(spawn.code);
        const float x = spawn.x * multiplier, y = spawn.y * multiplier;
        EXPECT_NEAR(p_insect->getVelocity().getX(), x, 1e-5f) << "insect " << i;
        EXPECT_NEAR(p_insect->getVelocity().getY(), y, 1e-5f) << "insect " << i;
        EXPECT_EQ(xy(p_insect->getPosition()), xy({50, 20}));
        expectPicture(p_insect);
        expected_log.push_back("DEBUG: Spawner initial insect velocity was " +
                               print(spawn.x, spawn.y));
        expected_log.push_back("DEBUG: Spawner made an insect with direction " +
                               print(x, y) + " from slow multipler " +
                               std::to_string(multiplier));
      }
      multiplier == 1.0f ? send(EventSlow()) : send(EventUnslow());
    }
  });
  EXPECT_EQ(matching("^DEBUG: Spawner", log), expected_log);
  EXPECT_EQ(seen.size(), 11u) << "bees, and two kinds in five colours";
  const Lines loads = matching("Loading sprite", log);
  EXPECT_EQ(loads.size(), 10u) << "one picture for each kind and colour";
  EXPECT_EQ(std::set<std::string>(loads.begin(), loads.end()).size(), 10u);
}

TEST_F(SpawnerTest, AReleaseComesAtOnceThenByChanceAndSurelyAfterAPeriod) {
  std::filesystem::remove_all("tazlet");
  for (const int period : {400, 30, 3, 2, 1})
    for (const unsigned seed : {1u, 77u, 2026u}) {
      Spawner &spawner = *new Spawner;
      if (period != 400) // what it begins with
        spawner.setSpawnFrequency(period);
      gw::srand(seed);
      Dice dice{seed};
      for (int i = 0, countdown = 0; i < 3 * period + 20; i++) {
        const bool is_due = --countdown <= dice.roll() % period;
        if (is_due) {
          const Spawn spawn(dice);
          countdown = period;
        }
        ASSERT_TRUE(is_due || (i > 0 && countdown > 0));
        const int before = objects();
        send(gw::EventStep(i));
        ASSERT_EQ(objects() - before, is_due ? 1 : 0)
            << "period " << period << ", seed " << seed << ", step " << i;
      }
      clearWorld();
    }
  EXPECT_EQ(matching("Loading sprite", logLines()).size(), 10u) << "tried once each";
}

TEST_F(SpawnerTest, EverySaleTakesAnEighthOffThePeriodAndNothingOffTheCountdown) {
  Spawner &spawner = *new Spawner;
  spawner.setSpawnCountdown(200);
  for (const int period :
       {350, 306, 267, 233, 203, 177, 154, 134, 117, 102, 89, 77, 67, 58, 50, 43, 37, 32,
        28,  24,  21,  18,  15,  13,  11,  9,   7,   6,   5,  4,  3,  2,  1,  1,  1})
    EXPECT_EQ(rulesLog([] { send(EventClear(gw::ObjectList())); }),
              says({"period " + std::to_string(period)}));
  EXPECT_EQ(spawner.getSpawnCountdown(), 200);
  spawner.setSpawnCountdown(1);
  for (int i = 1; i <= 5; i++) {
    send(gw::EventStep(i));
    EXPECT_EQ(objects(), 1 + i) << "one insect in every step";
  }
}
