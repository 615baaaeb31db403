#include "EngineTest.h"

TEST_F(EngineTest, VelocityIsADirectionOfLengthOneAndASpeed) {
  gw::Object &object = *new gw::Object;
  object.setPosition({10, 20});
  object.setVelocity({3, 4});
  EXPECT_EQ(xy(object.getDirection()), xy({0.6f, 0.8f}));
  EXPECT_EQ(object.getSpeed(), 5);
  EXPECT_EQ(xy(object.predictPosition()), xy({13, 24}));
  object.setDirection({0, 2});
  EXPECT_EQ(xy(object.getVelocity()), xy({0, 5})) << "a new direction, the old speed";
  object.setSpeed(-2);
  EXPECT_EQ(xy(object.predictPosition()), xy({10, 18})) << "backward";
  object.setVelocity({0, 0});
  EXPECT_EQ(object.getSpeed(), 0);
  EXPECT_EQ(xy(object.predictPosition()), xy({10, 20}));
}

TEST_F(EngineTest, AltitudesAndResponsesThatAreNoneAreRefused) {
  for (int value = -2; value <= 6; value++) {
    gw::Object &object = *new gw::Object;
    const bool is_altitude = value >= 0 && value <= 4;
    const bool is_response = value >= 0 && value <= 2;
    EXPECT_EQ(object.setAltitude(value), is_altitude ? 0 : -1);
    EXPECT_EQ(object.getAltitude(), is_altitude ? value : 2);
    EXPECT_EQ(object.setCollisionResponse(static_cast<gw::CollisionResponse>(value)),
              is_response ? 0 : -1);
    EXPECT_EQ(object.getCollisionResponse(), is_response ? value : gw::BLOCK);
  }
}

TEST_F(EngineTest, ASpriteGivesTheObjectItsBoxAndAMissingOneChangesNothing) {
  writeFile("sprite.txt", lines({"1", "5", "2", "0", "red", "12345", "12345"}));
  gw::ResourceManager::getInstance().loadSprite("sprite.txt", "sprite");
  gw::Object &object = *new gw::Object;
  const auto expect = [&](const char *label, int result, gw::Vector corner) {
    EXPECT_EQ(object.setSprite(label), result);
    EXPECT_EQ(xy(object.getBox().getCorner()), xy(corner)) << label;
    EXPECT_EQ(object.getBox().getHorizontal(), -2 * corner.getX()) << "centred";
    EXPECT_EQ(object.getBox().getVertical(), -2 * corner.getY());
  };
  expect("none", -1, {-0.5f, -0.5f});
  expect("sprite", 0, {-2.5f, -1});
  expect("none", -1, {-2.5f, -1});
  EXPECT_EQ(object.getAnimation().getSpriteLabel(), "sprite");
  EXPECT_EQ(logLines().back(),
            "WARNING: gw::Object::setSprite() - Sprite with label none not found. "
            "Ignoring.");
}
