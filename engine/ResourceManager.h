#pragma once

#include "Manager.h"

#include <array>
#include <set>
#include <string>

namespace gw {

class Music;
class Sound;
class Sprite;

/// How many of each can be loaded at a time. @{
constexpr int MAX_SPRITES = 500;
constexpr int MAX_SOUNDS = 50;
constexpr int MAX_MUSICS = 50; ///@}

/// Loads sprites, sounds and music and hands them out by label. Owns all of them
/// until it is shut down or told to unload one; what it hands out is borrowed.
/// Labels are compared exactly and need not be unique: the first loaded is found.
/// A resource that cannot be loaded is no reason to stop: the log says why, and whoever
/// asks for it gets null.
class ResourceManager : public Manager {
public:
  /// The only one.
  static ResourceManager &getInstance();

  /// Deletes sprites that were loaded before; sounds and music stay.
  /// @return 0, also when already started (then nothing changes)
  int startUp() override;

  /// Stops and releases everything. No object may show a sprite any more.
  void shutDown() override;

  /// Reads a sprite file (docs/sprite-format.md).
  /// @return 0, or -1 with an ERROR for a file that cannot be read or is not in
  /// the format (line and reason; what one does not see in that line, as a blank at
  /// its end, in a WARNING), with a WARNING when there is no room; nothing is added
  /// then
  int loadSprite(std::string filename, std::string label);

  /// Whether the last try to load a sprite of that label has failed. False when there was
  /// none since start-up. For those who load on demand, and would read a bad file again
  /// and again.
  bool hasSpriteFailed(const std::string &label) const;

  /// Deletes the sprite. No object may show it any more.
  /// @return 0, or -1 with a WARNING when there is none of that label
  int unloadSprite(std::string label);

  /// @return the sprite, borrowed; null with a WARNING when there is none
  Sprite *getSprite(std::string label) const;

  /// As for sprites; the file is one that the audio library can decode. @{
  int loadSound(std::string filename, std::string label);
  int unloadSound(std::string label);
  Sound *getSound(std::string label); ///@}

  /// As for sounds, but streamed from the file while it plays.
  int loadMusic(std::string filename, std::string label);

  /// As for sprites; the empty label is refused. @{
  int unloadMusic(std::string label);
  Music *getMusic(std::string label); ///@}

  /// A WARNING for each sprite, sound or music that is not found by its label, because
  /// another one of that label was loaded before. For a look after all was loaded.
  void warnOfSharedLabels() const;

private:
  ResourceManager();

  std::array<Sprite *, MAX_SPRITES> sprites{}; ///< owned, in load order
  int sprite_count = 0;
  std::set<std::string> failed_sprites;     ///< their labels
  std::array<Sound *, MAX_SOUNDS> sounds{}; ///< owned, in load order
  int sound_count = 0;
  std::array<Music *, MAX_MUSICS> musics{}; ///< owned, in load order
  int music_count = 0;
};

} // namespace gw
