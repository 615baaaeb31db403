#include "GameTest.h"

#include <cmath>
#include <filesystem>
#include <map>
#include <set>

using SpawnerTest = GameTest;

namespace {

int objects() {
  return gw::WorldManager::getInstance().getAllObjects().getCount();
}

/// What the spawner releases now.
const Insect *spawn() {
  findFirst<Spawner>()->spawnInsect();
  return dynamic_cast<Insect *>(
      gw::WorldManager::getInstance().getAllObjects()[objects() - 1]);
}

} // namespace

TEST_F(SpawnerTest, ASeedDecidesKindColorAndVelocityOfEveryInsect) {
  const struct {
    const char *code;
    float x, y;
  } seed_137[] = {{"Gb", -0.91369f, 0.49921f}, {"Bb", -0.75680f, -0.82491f},
                  {"Bc", 1.32959f, 0.60545f},  {"bee", 0.55334f, -0.68763f},
                  {"Br", 1.31737f, 0.81310f},  {"Bg", -0.64392f, -0.72641f},
                  {"Bm", 0.74954f, -0.89291f}};
  (new Spawner)->setPosition({50, 20});
  for (const float multiplier : {1.0f, 0.5f, 1.0f}) {
    gw::srand(137);
    for (const auto &c : seed_137) {
      const Insect *p_insect = spawn();
      EXPECT_EQ(codeOf(p_insect), c.code);
      EXPECT_EQ(xy(p_insect->getPosition()), xy({50, 20}));
      EXPECT_NEAR(p_insect->getVelocity().getX(), c.x * multiplier, 1e-5f) << c.code;
      EXPECT_NEAR(p_insect->getVelocity().getY(), c.y * multiplier, 1e-5f) << c.code;
    }
    multiplier == 1.0f ? send(EventSlow()) : send(EventUnslow());
  }
  gw::srand(137);
  EXPECT_EQ(matching("^DEBUG", logOf([] { spawn(); })),
            (Lines{"DEBUG: Spawner initial insect velocity was (-0.913694, 0.499207)",
                   "DEBUG: Spawner made an insect with direction (-0.456847, 0.249603) "
                   "from slow multipler 0.500000"}));
}

TEST_F(SpawnerTest, AnInsectInSeventeenIsABeeAndTheOthersComeInTwoKindsAndFiveColors) {
  loadResources();
  new Spawner;
  std::map<std::string, int> seen;
  const Lines log = logOf([&] {
    (new Sequence)->generateSequence(6); // shares its pictures with what is spawned
    for (int i = 0; i < 1700; i++) {
      const Insect *p_insect = spawn();
      const auto [x, y] = xy(p_insect->getVelocity());
      EXPECT_TRUE(std::fabs(x) > 0.39999f && std::fabs(x) < 1.40001f) << x;
      EXPECT_TRUE(std::fabs(y) > 0.39999f && std::fabs(y) < 0.90001f) << y;
      expectPicture(p_insect);
      seen[codeOf(p_insect)]++;
    }
  });
  EXPECT_EQ(seen.size(), 11u);
  for (const auto &[code, times] : seen)
    EXPECT_NEAR(times, code == "bee" ? 100 : 160, 40) << code;
  const Lines loads = matching("Loading sprite", log);
  EXPECT_EQ(loads.size(), 10u) << "one picture for each kind and colour";
  EXPECT_EQ(std::set<std::string>(loads.begin(), loads.end()).size(), 10u);
}

TEST_F(SpawnerTest, AReleaseComesAtOnceThenByChanceAndSurelyAfterAPeriod) {
  const struct {
    int period;
    unsigned seed;
    std::vector<int> releases; ///< the steps with one, counted from 1
  } cases[] = {
      {400, 1, {1,   16,  50,  63,  84,  113, 131, 137, 138, 159,
                175, 203, 231, 244, 260, 268, 287, 304, 318, 363}},
      {400,
       77,
       {1, 62, 73, 81, 116, 176, 215, 227, 260, 284, 294, 314, 346, 355, 388, 394}},
      {30, 1, {1, 9, 18, 28, 31, 40, 47, 53, 57, 63, 72, 73, 84, 88}},
      {3, 2026, {1, 4, 7, 8, 9, 12, 13, 15, 16, 18, 20}},
      {2, 1, {1, 3, 4, 5, 7, 8, 9, 10}}};
  std::filesystem::remove_all("tazlet");
  for (const auto &c : cases) {
    Spawner &spawner = *new Spawner;
    if (c.period != 400) // what it begins with
      spawner.setSpawnFrequency(c.period);
    gw::srand(c.seed);
    std::vector<int> releases;
    for (int i = 1; i <= c.releases.back(); i++) {
      const int before = objects();
      send(gw::EventStep(i));
      if (objects() > before)
        releases.push_back(i);
    }
    EXPECT_EQ(releases, c.releases) << "period " << c.period << ", seed " << c.seed;
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
    EXPECT_EQ(logOf([] { send(EventClear(gw::ObjectList())); }),
              Lines{"INFO: Spawner::eventHandler(): Sequence cleared. Increasing Spawner "
                    "spawn frequency. Spawn frequency is now " +
                    std::to_string(period)});
  EXPECT_EQ(spawner.getSpawnFrequency(), 1);
  EXPECT_EQ(spawner.getSpawnCountdown(), 200);
  spawner.setSpawnCountdown(1);
  for (int i = 1; i <= 5; i++) {
    send(gw::EventStep(i));
    EXPECT_EQ(objects(), 1 + i) << "one insect in every step";
  }
}
