#pragma once

namespace gw {

/// Somebody who plays a game in place of a person. Not an object: the world does not know
/// of it.
class Player {
public:
  Player() = default;
  virtual ~Player() = default;
  Player(const Player &) = delete;
  Player &operator=(const Player &) = delete;

  /// Called before each step: looks at the world and presses keys and moves the mouse
  /// with the functions of Input.h, which the objects hear of in this step. For the same
  /// game every time, it may depend on its own seed and on the world, and not on
  /// `gw::rand`, which is the game's.
  /// @param step counted from 0
  virtual void play(int step) = 0;
};

} // namespace gw
