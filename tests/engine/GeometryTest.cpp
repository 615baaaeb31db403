#include "utility.h"
#include "vectorOperators.h"

#include <gtest/gtest.h>

using gw::Box;

TEST(Geometry, BoxesAndPositionsIntersectUpToTheEdgeIncluded) {
  const Box unit({0, 0}, 1, 1);
  const Box leftward({0, 0}, -2, 1); // contains nothing, not even itself
  const struct {
    const char *what = nullptr;
    Box a, b;
    bool intersect = false;
  } cases[] = {
      {"a common edge", unit, Box({1, 0}, 1, 1), true},
      {"a common corner", unit, Box({-1, 1}, 1, 1), true},
      {"a gap in x only", unit, Box({1.5f, 0}, 1, 1), false},
      {"a gap in y only", unit, Box({0, -1.01f}, 1, 1), false},
      {"one inside the other", unit, Box({0.25f, 0.25f}, 0.5f, 0.5f), true},
      {"crossing, no corner inside", unit, Box({0.25f, -1}, 0.5f, 3), true},
      {"a point on the border", unit, Box({1, 0.5f}, 0, 0), true},
      {"a point outside", unit, Box({1, 1.01f}, 0, 0), false},
      {"negative, corner inside", leftward, Box({-1, 0}, 1, 1), true},
      {"negative and itself", leftward, leftward, false},
  };
  for (const auto &c : cases) {
    EXPECT_EQ(gw::boxesIntersect(c.a, c.b), c.intersect) << c.what;
    EXPECT_EQ(gw::boxesIntersect(c.b, c.a), c.intersect) << c.what << ", swapped";
  }
  EXPECT_TRUE(gw::positionsIntersect({0, 0}, {1, -1}));
  EXPECT_FALSE(gw::positionsIntersect({0, 0}, {1.01f, 0}));
  EXPECT_FALSE(gw::positionsIntersect({0, 0}, {0, -1.01f}));
}

TEST(Geometry, VectorsAreComparedExactlyAndPartByPart) {
  using gw::Vector;
  EXPECT_TRUE(Vector(1, 2) - Vector(3, 5) == Vector(-2, -3));
  EXPECT_TRUE(2 * Vector(1, -3) == Vector(2, -6) && Vector(1, -3) * 2 == Vector(2, -6));
  EXPECT_TRUE(Vector(1, 2) != Vector(1, 2.0001f) && Vector(1, 2) != Vector(1.0001f, 2));
}
