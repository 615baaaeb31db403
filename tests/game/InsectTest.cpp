#include "GameTest.h"

using InsectTest = GameTest;
using InsectDeathTest = GameTest;

TEST_F(InsectTest, APressHitsWhatTheCellAroundThePointerTouches) {
  // The insects span x 68 to 72 and y 24 to 26; the pointer adds half a cell.
  const std::pair<gw::Vector, bool> cases[] = {
      {{67.5f, 25}, true},    {{67.25f, 25}, false},    {{72.5f, 25}, true},
      {{72.75f, 25}, false},  {{70, 23.5f}, true},      {{70, 23.25f}, false},
      {{70, 26.5f}, true},    {{70, 26.75f}, false},    {{67.5f, 23.5f}, true},
      {{72.5f, 26.5f}, true}, {{72.75f, 26.5f}, false}, {{72.5f, 26.75f}, false}};
  for (const auto &[where, hit] : cases)
    for (const char *code : {"Br", "Gc", "bee"}) {
      Insect *p_insect = add(code);
      p_insect->setBox(gw::Box({-2, -1}, 4, 2));
      press(where);
      EXPECT_EQ(p_insect->getPinned() || world().isMarkedForDelete(p_insect), hit)
          << code << " at " << where.getX() << ", " << where.getY();
      clearWorld();
    }
}

TEST_F(InsectTest, OnlyAPressOnAFreeInsectPins) {
  const struct {
    const char *what;
    gw::EventMouseAction action;
    gw::Mouse::Button button;
    bool pinnable, is_pinned, pins;
  } cases[] = {
      {"left", gw::PRESSED, gw::Mouse::LEFT, true, false, true},
      {"right", gw::PRESSED, gw::Mouse::RIGHT, true, false, true},
      {"middle", gw::PRESSED, gw::Mouse::MIDDLE, true, false, true},
      {"other", gw::PRESSED, gw::Mouse::UNDEFINED_MOUSE_BUTTON, true, false, true},
      {"a target", gw::PRESSED, gw::Mouse::LEFT, false, false, false},
      {"on the board", gw::PRESSED, gw::Mouse::LEFT, true, true, false},
      {"release", gw::RELEASED, gw::Mouse::LEFT, true, false, false},
      {"move", gw::MOVED, gw::Mouse::UNDEFINED_MOUSE_BUTTON, true, false, false}};
  for (const auto &c : cases) {
    Lines journal;
    (new Recorder)->p_journal = &journal;
    Insect *p_insect = add("Gm");
    p_insect->setPinnable(c.pinnable);
    p_insect->setPinned(c.is_pinned);
    sendMouse(c.action, c.button, p_insect->getPosition());
    EXPECT_EQ(countOf("Object pin", journal), c.pins) << c.what;
    EXPECT_EQ(p_insect->getPinned(), c.is_pinned || c.pins) << c.what;
    clearWorld();
  }
}

TEST_F(InsectTest, InsectsUnderOnePressArePinnedOnceInTheOrderOfTheWorldsList) {
  std::string told;
  (new Recorder)->onEvent = [&told](const gw::Event &event) {
    if (const auto *p_pin = gw::eventAs<EventPin>(&event, PIN_EVENT)) {
      told += codeOf(p_pin->getPinnedInsect());
      EXPECT_TRUE(p_pin->getPinnedInsect()->getPinned()) << "before anyone hears of it";
    }
  };
  add("Br");
  add("Gb");
  press(add("Bc")->getPosition());
  press({70, 25});
  EXPECT_EQ(told, "BrGbBc");
}

TEST_F(InsectTest, SlowingHalvesTheSpeedAndUnslowingDoublesIt) {
  const std::pair<std::string, float> cases[] = {
      {"s", 0.5f}, {"su", 1}, {"ssu", 0.5f}, {"ssuu", 1}, {"u", 2}};
  for (const auto &[events, factor] : cases) {
    Insect *flying[] = {add("Br"), add("Gb"), add("Bc")}, *p_resting = add("Gg");
    flying[1]->setPinned(true);
    flying[2]->setPinnable(false);
    for (Insect *p_insect : flying)
      p_insect->setVelocity({-0.75f, 1});
    for (const char event : events)
      event == 's' ? send(EventSlow()) : send(EventUnslow());
    for (const Insect *p_insect : flying) {
      EXPECT_EQ(p_insect->getSpeed(), 1.25f * factor) << events;
      EXPECT_EQ(xy(p_insect->getDirection()), xy({-0.75f / 1.25f, 1 / 1.25f})) << events;
    }
    EXPECT_EQ(p_resting->getSpeed(), 0) << events;
    clearWorld();
  }
}

// Once it has left, an insect would be gone in the next step, and the board would
// hold a pointer to nothing.
TEST_F(InsectTest, AnInsectThatLeavesTheWorldGoesAndCannotBePinned) {
  for (const char *code : {"Br", "Gb", "bee"}) {
    Insect *p_insect = add(code, {127.5f, 9});
    p_insect->setVelocity({0.5f, 0});
    step();
    EXPECT_FALSE(world().isMarkedForDelete(p_insect)) << code << " at the very edge";
    step();
    ASSERT_EQ(insects(), 1) << code << " is there in the step in which it leaves";
    if (p_insect->getType() != "Bee") // a press is its end anyway
      press(p_insect->getPosition());
    EXPECT_FALSE(p_insect->getPinned()) << code;
    step();
    EXPECT_EQ(insects(), 0) << code;
  }
}

TEST_F(InsectTest, IsCalledByItsColorUnlessThatIsBlackOrWhiteOrNone) {
  Insect insect;
  std::string names;
  for (int color = -1; color <= 8; color++) {
    insect.setColor(static_cast<gw::Color>(color));
    names += insect.getColorAsString() + " ";
  }
  EXPECT_EQ(names, "unknown unknown red green yellow blue magenta cyan unknown unknown ");
}

TEST_F(InsectTest, KeepsThePictureOfItsKindWhenThereIsNoneOfItsColor) {
  loadResources();
  std::filesystem::remove_all("tazlet");
  for (const char *code : {"Br", "Gc"}) {
    Insect *p_insect = add(code);
    p_insect->setTintedSprite();
    EXPECT_EQ(p_insect->getAnimation().getSpriteLabel(), p_insect->getType());
  }
}

TEST_F(InsectDeathTest, WhatIsNoInsectEndsTheProgramWithALineOnStreamAndLog) {
  const std::string line =
      "Insect.cpp:[0-9]+: an object that is no insect is on the board or in the row "
      "\\(p_insect\\)";
  EXPECT_DEATH(asInsect(new gw::Object), "^" + line + "\n");
  EXPECT_EQ(matching("^CRITICAL: " + line + "$", logLines()).size(), 1u);
}
