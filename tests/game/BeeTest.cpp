#include "GameTest.h"

using BeeTest = GameTest;

TEST_F(BeeTest, APressPaysForEveryBeeAndOnceMoreForTheOnePressed) {
  pin("bee");
  step();
  EXPECT_EQ(count("Bee"), 0) << "without a score there is no pay, but they go";
  new Score;
  Insect *p_flying = add("Br", {20, 20});
  p_flying->setVelocity({0.75f, 1});
  const Lines expected_log = {"WARNING: gw::ResourceManager::getSound() - Could not find "
                              "loaded Sound with label 'PinBug'.",
                              "DEBUG: Sent a SlowEvent"};
  int expected_score = 0;
  float expected_speed = 1.25f;
  for (const int others : {0, 1, 2, 5}) {
    for (int i = 0; i < others; i++)
      add("bee", {10, 40});
    Insect *p_bee = add("bee");
    p_bee->setPinnable(false); // means nothing to a bee
    p_bee->setPinned(true);
    sendMouse(gw::RELEASED, gw::Mouse::LEFT, p_bee->getPosition());
    press({60, 10});
    EXPECT_EQ(score(), expected_score) << "nothing pressed yet";
    EXPECT_EQ(
        logOf([&] { sendMouse(gw::PRESSED, gw::Mouse::MIDDLE, p_bee->getPosition()); }),
        expected_log);
    EXPECT_EQ(score(), expected_score += 15 * (others + 1) + 15) << others << " others";
    EXPECT_EQ(p_flying->getSpeed(), expected_speed *= 0.5f) << others << " others";
    EXPECT_EQ(count("Bee"), others + 1) << "they go with the next update";
    step();
    EXPECT_EQ(count("Bee"), 0) << others << " others";
  }
  add("bee");
  pin("bee");
  EXPECT_EQ(score(), expected_score + 2 * (2 * 15 + 15)) << "two under one press";
  EXPECT_EQ(p_flying->getSpeed(), expected_speed / 4) << "two under one press";
}
