#pragma once

#include "Color.h"
#include "ObjectList.h"
#include "Vector.h"
#include "WorldManager.h"

#include <string>

/// What several of the game's objects do in the same way.

/// Plays the sound with that label once; silence when it is not loaded.
void playSound(const std::string &label);

/// Loads a sprite of its own for that colour, unless it is there or could not be loaded
/// before.
void loadTintedSprite(const std::string &filename, const std::string &label,
                      gw::Color color);

/// The middle of the display, in cells.
gw::Vector displayCenter();

/// The first `T` in the world, by its type string; null when there is none. The world's,
/// not the caller's. Objects that are marked for deletion are not found: those of a game
/// that has just ended are no part of the one that starts in the same step.
template <class T> T *findFirst() {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  for (gw::Object *p_o : world.getAllObjectsOfType(T::TYPE))
    if (!world.isMarkedForDelete(p_o))
      return dynamic_cast<T *>(p_o);
  return nullptr;
}
