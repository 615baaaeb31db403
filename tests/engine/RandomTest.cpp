#include "Random.h"

#include <gtest/gtest.h>

// The first numbers of two seeds, worked out by hand from the generator's
// definition: a game depends on every one of them.
TEST(Random, EverySeedHasItsOwnSequence) {
  const int seed_1[] = {41, 18467, 6334, 26500, 19169};
  const int seed_2026[] = {6654, 26038, 5409, 28694, 199};
  for (int expected : seed_1)
    EXPECT_EQ(gw::rand(), expected) << "unseeded";
  gw::srand(2026);
  for (int expected : seed_2026)
    EXPECT_EQ(gw::rand(), expected);
  gw::srand(1);
  for (int expected : seed_1)
    EXPECT_EQ(gw::rand(), expected) << "seeded again";
}
