#pragma once

#include "EventMouse.h"
#include "Game.h"
#include "Input.h"
#include "ObjectList.h"
#include "TextScreen.h"

#include <string>

namespace gw {

/// A game for a test: without a window, in the working directory, where it finds its
/// resources and writes its log, everything and at once. Press keys and move the mouse
/// with the functions of Input.h, run steps, and look at the screen, the objects and the
/// log. One at a time.
class TestRun {
public:
  /// Starts the engine, loads the game's resources and populates its world.
  /// @param seed of the game
  explicit TestRun(const Game &game, unsigned seed = 1);

  /// Shuts the engine down, which deletes all objects.
  ~TestRun();

  TestRun(const TestRun &) = delete;
  TestRun &operator=(const TestRun &) = delete;

  /// Runs so many steps of the game loop, without sleep. What was pressed and moved since
  /// the last one is heard in the first.
  void step(int count = 1);

  /// Whether the game has ended itself.
  bool isOver() const;

  /// What the last step showed; blank before the first.
  const TextScreen &getScreen() const;

  /// Whether that text stands in one row of the screen.
  bool shows(const std::string &text) const;

  /// The objects of the type; all where none is given. In list order.
  ObjectList getObjects(const std::string &type = "") const;

  /// The log so far.
  std::string getLog() const;
};

} // namespace gw
