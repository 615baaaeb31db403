#include "GameTest.h"

using PinBoardTest = GameTest;

TEST_F(PinBoardTest, PinsFillTheSlotsFromTheTopAndTheEighthEndsTheGameOnce) {
  new PinBoard;
  for (int slot = 1; slot <= 9; slot++) {
    Insect *p_insect = add("Gc");
    p_insect->setVelocity({0.5f, -1});
    press(p_insect->getPosition());
    EXPECT_EQ(count("GameOver"), slot < 8 ? 0 : 1) << "slot " << slot;
    EXPECT_EQ(xy(p_insect->getPosition()), xy({116, 6 * static_cast<float>(slot) - 1}));
    EXPECT_EQ(p_insect->getSpeed(), 0);
    EXPECT_EQ(p_insect->getAltitude(), 4);
  }
}

TEST_F(PinBoardTest, ASaleTakesTheNewestOffAndPutsTheOthersInTheirSlots) {
  struct Case {
    int sold;
    const char *before, *after;
  };
  const Case cases[] = {{3, "Br Gg Bb Gm Bc", "Br Gg"},
                        {2, "Br Gg", ""},
                        {5, "Br Gg", ""},
                        {1, "Br Gg Br Gg Br Gg Bb", "Br Gg Br Gg Br Gg"},
                        {0, "Br Gg", "Br Gg"},
                        {2, "", ""},
                        {1, "Br Gg Br Gg Br Gg Br Gg", "Br Gg Br Gg Br Gg Br Gg"}};
  for (const Case &c : cases) {
    SCOPED_TRACE(c.before);
    new PinBoard;
    pin(c.before);
    for (gw::Object *p_pinned : board()->getPinnedBugs())
      p_pinned->setPosition({1, 1});
    gw::ObjectList targets;
    for (int i = 0; i < c.sold; i++)
      targets.insert(board());
    send(EventClear(targets));
    world().update();
    EXPECT_EQ(pinned(), c.after);
    const gw::ObjectList left = board()->getPinnedBugs();
    EXPECT_EQ(insects(), left.getCount());
    for (int i = 0; i < left.getCount() && left.getCount() < 8; i++)
      EXPECT_EQ(xy(left[i]->getPosition()), xy({116, 5 + 6 * static_cast<float>(i)}));
    clearWorld();
  }
}
