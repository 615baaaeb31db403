#pragma once

#include "EngineTest.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "Insect.h"
#include "Sprite.h"
#include "gameUtility.h"

#include <string>
#include <vector>

/// The game in a started engine without a window: real sprites, no sounds (their
/// absence is part of the game), seed 1 unless the test seeds.
class GameTest : public EngineTest {
protected:
  void SetUp() override;

  /// Loads the sprites, creates border and menu, presses `P`.
  void startGame();

  /// So many steps of the game, without sleep.
  void step(int steps = 1);

  void pressKey(gw::Keyboard::Key key);
  void sendMouse(gw::EventMouseAction action, gw::Mouse::Button button, gw::Vector where);

  /// A press of the left button.
  void press(gw::Vector where);

  /// A new insect of that kind and colour at rest, on an empty part of the field
  /// (far from other insects unless there are very many).
  template <class Kind>
  Kind *addInsect(gw::Color color = gw::RED, gw::Vector where = gw::Vector(70, 25)) {
    auto *p_insect = new Kind;
    p_insect->setColor(color);
    p_insect->setPosition(where);
    return p_insect;
  }

  /// The objects of that type in the world.
  static int count(const std::string &type);

  /// The types of all objects in the world, in list order.
  static std::vector<std::string> types();

  /// Takes every spawner out of the game, so that nothing comes by chance.
  void removeSpawners();
};
