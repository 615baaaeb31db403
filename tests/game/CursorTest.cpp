#include "GameTest.h"

using CursorTest = GameTest;

TEST_F(CursorTest, FollowsMovesAndLooksPressedWithTheLeftButtonOnly) {
  const struct {
    gw::EventMouseAction action;
    gw::Mouse::Button button;
    const char *look;
    std::pair<float, float> where; ///< it stands afterwards
    std::size_t lines;             ///< in the log: a missing sound
  } cases[] = {
      {gw::PRESSED, gw::Mouse::RIGHT, "NeutralCursor", {64, 24}, 0},
      {gw::MOVED, gw::Mouse::UNDEFINED_MOUSE_BUTTON, "NeutralCursor", {1, 2.5f}, 0},
      {gw::PRESSED, gw::Mouse::LEFT, "ClickedCursor", {1, 2.5f}, 1},
      {gw::PRESSED, gw::Mouse::LEFT, "ClickedCursor", {1, 2.5f}, 1},
      {gw::RELEASED, gw::Mouse::RIGHT, "ClickedCursor", {1, 2.5f}, 0},
      {gw::MOVED, gw::Mouse::UNDEFINED_MOUSE_BUTTON, "ClickedCursor", {5, 6.5f}, 0},
      {gw::RELEASED, gw::Mouse::LEFT, "NeutralCursor", {5, 6.5f}, 0}};
  loadResources();
  const Cursor &cursor = *new Cursor;
  float x = 0;
  for (const auto &c : cases) {
    const Lines log = logOf([&] { sendMouse(c.action, c.button, {x, x + 1.5f}); });
    EXPECT_EQ(cursor.getAnimation().getSpriteLabel(), c.look) << "case " << x;
    EXPECT_EQ(xy(cursor.getPosition()), c.where) << "case " << x;
    EXPECT_EQ(log.size(), c.lines) << "case " << x;
    x++;
  }
}
