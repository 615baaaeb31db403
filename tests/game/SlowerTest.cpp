#include "GameTest.h"

using SlowerTest = GameTest;

TEST_F(SlowerTest, UnslowsOnceInTheThirtyFourthStepAfterTheLatestSlow) {
  using Numbers = std::vector<int>;
  // Slow events after so many steps; unslow events in the steps of these numbers.
  const std::pair<Numbers, Numbers> cases[] = {
      {{}, {}},        {{0}, {34}},         {{0, 10}, {44}},
      {{5, 38}, {72}}, {{0, 34}, {34, 68}}, {{0, 50}, {34, 84}}};
  for (const auto &[slow, expected] : cases) {
    new Slower;
    Lines journal;
    (new Recorder)->p_journal = &journal;
    Numbers unslow;
    for (int number = 1; number <= 120; number++) {
      if (std::count(slow.begin(), slow.end(), number - 1))
        send(EventSlow());
      journal.clear();
      step();
      if (countOf("Object unslow", journal) == 1)
        unslow.push_back(number);
    }
    EXPECT_EQ(unslow, expected) << testing::PrintToString(slow);
    clearWorld();
  }
  EXPECT_EQ(countOf("DEBUG: Sent an Unslow event", logLines()), 7) << "one for each";
}
