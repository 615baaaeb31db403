#include "EngineTest.h"

// AddressSanitizer's; null in a build without it.
extern "C" [[gnu::weak]] int __sanitizer_install_malloc_and_free_hooks(
    void (*on_malloc)(const volatile void *, std::size_t),
    void (*on_free)(const volatile void *));

namespace {

int allocations = 0;

void count(const volatile void *, std::size_t) {
  allocations++;
}

void ignore(const volatile void *) {
}

} // namespace

TEST_F(EngineTest, AMoveThatMeetsNothingAllocatesNothing) {
  if (!__sanitizer_install_malloc_and_free_hooks)
    GTEST_SKIP() << "counts with AddressSanitizer only";
  gw::WorldManager &world = gw::WorldManager::getInstance();
  auto *p_mover = new gw::Object;
  p_mover->setVelocity(gw::Vector(1, 0));
  auto *p_other = new gw::Object;
  p_other->setPosition(gw::Vector(5, 0));
  p_other->setCollisionResponse(gw::OVERLAP);
  world.update();
  ASSERT_GT(__sanitizer_install_malloc_and_free_hooks(count, ignore), 0);
  world.update();
  EXPECT_EQ(allocations, 0);
  world.update();
  world.update();
  EXPECT_GT(allocations, 0) << "the counter counts what the collision takes";
  EXPECT_EQ(xy(p_mover->getPosition()), xy({4, 0}));
}
