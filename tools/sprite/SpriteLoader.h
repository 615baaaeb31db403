#pragma once

#include "Sprite.h"

#include <fstream>
#include <memory>
#include <string>
#include <vector>

/// What became of a sprite file: a sprite, or what is wrong with the file.
struct LoadedSprite {
  std::unique_ptr<gw::Sprite> sprite; ///< null for a bad file
  /// One line each, beginning with the file's name; empty for a good file.
  std::vector<std::string> messages;
};

/// Reads sprite files with the engine's reader, so that a file is good here exactly
/// when it is good in the game. The reader puts its reasons into the engine's log;
/// this class keeps that log out of the user's way and hands on what it says.
class SpriteLoader {
public:
  /// Starts the engine's log. @return false with `error` set when there is no place
  /// for it
  bool startUp(std::string &error);

  /// Only to be called once started.
  LoadedSprite load(const std::string &filename);

private:
  std::vector<std::string> takeLogLines();

  std::ifstream log; ///< the engine's log, read up to its present end
};
