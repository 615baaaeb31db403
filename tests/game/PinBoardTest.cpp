#include "RulesTest.h"

using PinBoardTest = RulesTest;

TEST_F(PinBoardTest, PinsFillTheSlotsFromTheTopAndTheEighthEndsTheGameOnce) {
  new PinBoard;
  for (int slot = 1; slot <= 9; slot++) {
    Insect *p_insect = add("Gc");
    p_insect->setVelocity({0.5f, -1});
    Lines log = rulesLog([&] { press(p_insect->getPosition()); });
    Lines expected = {"place Gc " + std::to_string(slot)};
    if (slot == 8) {
      expected.push_back("overflow");
      expected.insert(expected.end(), 8, "delay Gc");
    }
    EXPECT_EQ(log, says(expected));
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
    Lines log;
  };
  const Case cases[] = {
      {3, "Br Gg Bb Gm Bc", "Br Gg", {"remove Bb 2", "remove Gm 3", "remove Bc 4"}},
      {2, "Br Gg", "", {"remove Br 0", "remove Gg 1"}},
      {5, "Br Gg", "", {"remove Br 0", "remove Gg 1"}},
      {1, "Br Gg Br Gg Br Gg Bb", "Br Gg Br Gg Br Gg", {"remove Bb 6"}},
      {0, "Br Gg", "Br Gg", {}},
      {2, "", "", {}},
      {1, "Br Gg Br Gg Br Gg Br Gg", "Br Gg Br Gg Br Gg Br Gg", {}}};
  for (const Case &c : cases) {
    SCOPED_TRACE(c.before);
    new PinBoard;
    pin(c.before);
    for (int i = 0; i < board()->getPinnedBugs().getCount(); i++)
      board()->getPinnedBugs()[i]->setPosition({1, 1});
    gw::ObjectList targets;
    for (int i = 0; i < c.sold; i++)
      targets.insert(board());
    EXPECT_EQ(rulesLog([&] { send(EventClear(targets)); }), says(c.log));
    world().update();
    EXPECT_EQ(pinned(), c.after);
    const gw::ObjectList left = board()->getPinnedBugs();
    EXPECT_EQ(insects(), left.getCount());
    for (int i = 0; i < left.getCount() && left.getCount() < 8; i++)
      EXPECT_EQ(xy(left[i]->getPosition()), xy({116, 5 + 6 * static_cast<float>(i)}));
    clearWorld();
  }
}
