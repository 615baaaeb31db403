#pragma once

#include "Hash.h"
#include "Object.h"
#include "Player.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace gw {

/// Where a game is shown.
enum class Place {
  automatic, ///< a window where there is a display, else the terminal
  window,
  terminal,
  headless, ///< nowhere: as fast as it goes
};

/// A player that a game brings.
struct NamedPlayer {
  std::string name; ///< for `--player`
  std::function<std::unique_ptr<Player>(unsigned seed)> make;
};

/// What the runner has to know of a game to play it: in a window, in a terminal or on its
/// own; by a person or by itself; recorded and played again. Only the name and
/// `populateWorld` are needed.
struct Game {
  std::string name;          ///< one word, the program's
  std::string version = "0"; ///< one word; recordings tell it

  /// Loads sprites, sounds and music, once the engine is started.
  std::function<void()> loadResources;

  /// Creates the first objects, in a world that is empty, with the generator seeded.
  std::function<void()> populateWorld;

  /// Who can play it beside a person.
  std::vector<NamedPlayer> players;

  /// Adds to the digest what an object has beyond every object's fields.
  std::function<void(Hash &, const Object &)> addFields;

  /// Prints something about the run at its end, when all objects still exist.
  std::function<void()> report;

  std::string default_player = "human"; ///< without `--player`
  Place default_place = Place::automatic;
};

/// The `main` of a game: reads the command line (`--help` tells the options), starts the
/// engine with a log that has everything and is written at once, runs the game and shuts
/// the engine down. Where there is no font in the working directory, and one beside the
/// program, it goes there first.
/// @return the process's exit status: 0; 1 when it could not do what it was asked to,
/// which a line on the standard error stream says; CLI11's for a mistake in the command
/// line
int runGame(const Game &game, int argc, char *argv[]);

} // namespace gw
