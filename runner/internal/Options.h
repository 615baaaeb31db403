#pragma once

#include "Game.h"

#include <optional>
#include <string>

namespace gw {

/// What the command line asks for.
struct Options {
  Place place = Place::automatic; ///< automatic only while it is not decided
  std::optional<unsigned> seed;
  std::optional<long long> steps; ///< none given; 0: until the game is over
  std::string player;             ///< a name of `Game::players`, or `HUMAN`
  std::string record_file;        ///< absolute; empty for none
  std::string replay_file;        ///< absolute; empty for none
  bool digest = false;
  bool screen = false;                  ///< print it
  std::optional<long long> screen_step; ///< after so many steps; none: at the end
  bool boxes = false;
};

inline constexpr const char *HUMAN = "human"; ///< the player that is a person

/// One line on the standard error stream, after the program's name.
void complain(const Game &game, const std::string &message);

/// @return the options; nothing where there is nothing to play, and then `status` is the
/// process's: `--help`, or a mistake that was told on the standard error stream
std::optional<Options> readOptions(const Game &game, int argc, char *argv[], int &status);

} // namespace gw
