#include "RulesTest.h"

using CursorTest = RulesTest;

TEST_F(CursorTest, FollowsMovesAndLooksPressedWithTheLeftButtonOnly) {
  struct Case {
    gw::EventMouseAction action;
    gw::Mouse::Button button;
    int result;
    const char *look;
    std::pair<float, float> where; // it stands afterwards
    int clicks;
  };
  const char *neutral = "NeutralCursor", *clicked = "ClickedCursor";
  const Case cases[] = {
      {gw::PRESSED, gw::Mouse::RIGHT, 0, neutral, {64, 24}, 0},
      {gw::MOVED, gw::Mouse::UNDEFINED_MOUSE_BUTTON, 1, neutral, {1, 2.5f}, 0},
      {gw::PRESSED, gw::Mouse::LEFT, 1, clicked, {1, 2.5f}, 1},
      {gw::PRESSED, gw::Mouse::LEFT, 1, clicked, {1, 2.5f}, 1},
      {gw::RELEASED, gw::Mouse::RIGHT, 0, clicked, {1, 2.5f}, 0},
      {gw::MOVED, gw::Mouse::UNDEFINED_MOUSE_BUTTON, 1, clicked, {5, 6.5f}, 0},
      {gw::RELEASED, gw::Mouse::LEFT, 1, neutral, {5, 6.5f}, 0}};
  loadResources();
  Cursor &cursor = *new Cursor;
  for (const Case &c : cases) {
    const auto number = static_cast<float>(&c - cases);
    gw::EventMouse event;
    event.setMouseAction(c.action);
    event.setMouseButton(c.button);
    event.setMousePosition({number, number + 1.5f});
    const Lines log = logOf(
        [&] { EXPECT_EQ(cursor.eventHandler(&event), c.result) << "case " << number; });
    EXPECT_EQ(cursor.getAnimation().getSpriteLabel(), c.look) << "case " << number;
    EXPECT_EQ(xy(cursor.getPosition()), c.where) << "case " << number;
    EXPECT_EQ(matching("'ClickPin'", log).size(), c.clicks) << "a missing sound each";
  }
}
