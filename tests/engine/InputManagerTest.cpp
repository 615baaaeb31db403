#include "InputManager.h"
#include "EngineTest.h"

#include <SFML/Window/Event.hpp>

#include <climits>
#include <map>

namespace {

using SF = sf::Keyboard::Key;
namespace GW = gw::Keyboard;

/// Every key that the engine knows, in the order of the engine's values from 0 on.
const struct {
  SF first;
  int count; ///< of keys that follow each other in both enumerations
  GW::Key first_value;
} KEYS[] = {{SF::Escape, 1, GW::ESCAPE},
            {SF::F1, 12, GW::F1},
            {SF::Grave, 1, GW::GRAVE},
            {SF::Num1, 9, GW::NUM1},
            {SF::Num0, 1, GW::NUM0},
            {SF::Subtract, 1, GW::MINUS},
            {SF::Add, 1, GW::PLUS},
            {SF::Tab, 1, GW::TAB},
            {SF::A, 26, GW::A},
            {SF::Enter, 1, GW::ENTER},
            {SF::Period, 1, GW::PERIOD},
            {SF::Comma, 1, GW::COMMA},
            {SF::Slash, 1, GW::SLASH},
            {SF::LShift, 1, GW::LEFT_SHIFT},
            {SF::RShift, 1, GW::RIGHT_SHIFT},
            {SF::LControl, 1, GW::LEFT_CONTROL},
            {SF::RControl, 1, GW::RIGHT_CONTROL},
            {SF::Space, 1, GW::SPACE},
            {SF::Left, 4, GW::LEFT_ARROW},
            {SF::Pause, 1, GW::PAUSE}};

} // namespace

TEST(InputManager, ExactlySixtySevenKeysAreMappedEachByItsName) {
  const gw::InputManager &input = gw::InputManager::getInstance();
  std::map<int, int> expected; // the engine's value for SFML's code
  for (const auto &run : KEYS) {
    EXPECT_EQ(run.first_value, static_cast<int>(expected.size())) << "values have no gap";
    for (int i = 0; i < run.count; i++)
      expected[static_cast<int>(run.first) + i] = run.first_value + i;
  }
  ASSERT_EQ(expected.size(), 67U);
  EXPECT_EQ(expected[static_cast<int>(SF::Z)], GW::Z);
  std::vector<int> codes = {INT_MIN, INT_MAX, 65536 + 15};
  for (int code = -130; code <= 260; code++)
    codes.push_back(code);
  for (int code : codes) {
    const bool known = expected.count(code) == 1;
    EXPECT_EQ(input.mapSFMLKeyToGlidewingKey(SF(code)), known ? expected[code] : -1)
        << code;
    EXPECT_EQ(input.isSFMLKeyValid(SF(code)), known) << code;
  }
}

TEST_F(EngineTest, PostedInputEndsWithTheEngineItWasPostedTo) {
  gw::InputManager &input = gw::InputManager::getInstance();
  int heard = 0;
  (new Recorder)->onEvent = [&heard](const gw::Event &) { heard++; };
  input.postEvent(sf::Event::KeyPressed{SF::P});
  input.shutDown();
  input.getInput();
  EXPECT_EQ(heard, 0);
}

TEST(InputManager, ThreeButtonsAreMappedAndNoOther) {
  const gw::InputManager &input = gw::InputManager::getInstance();
  using Button = sf::Mouse::Button;
  const std::pair<Button, int> cases[] = {{Button::Left, gw::Mouse::LEFT},
                                          {Button::Right, gw::Mouse::RIGHT},
                                          {Button::Middle, gw::Mouse::MIDDLE},
                                          {Button::Extra1, -1},
                                          {Button(-1), -1}};
  for (const auto &[button, expected] : cases) {
    EXPECT_EQ(input.mapSFMLButtonToGlidewingButton(button), expected);
    EXPECT_EQ(input.isSFMLButtonValid(button), expected != -1);
  }
}
