#pragma once

#include "ObjectList.h"
#include "Vector.h"
#include "WorldManager.h"

#include <string>

class Insect;

/// What several of the game's objects do in the same way.

/// Plays the sound with that label once; silence when it is not loaded.
void playSound(const std::string &label);

/// The middle of the display, in cells.
gw::Vector displayCenter();

/// The first object of that type in the world, as a `T`; null when there is none.
/// The world's, not the caller's. Objects that are marked for deletion are not found:
/// those of a game that has just ended are no part of the one that starts in the same
/// step.
template <class T> T *findFirst(const std::string &type) {
  gw::WorldManager &world = gw::WorldManager::getInstance();
  const gw::ObjectList found = world.getAllObjectsOfType(type);
  for (int i = 0; i < found.getCount(); i++)
    if (!world.isMarkedForDelete(found[i]))
      return dynamic_cast<T *>(found[i]);
  return nullptr;
}

/// Shows a butterfly or glidewing in its own colour: with a copy of its kind's
/// sprite, labelled for instance "glidewingcolorcyan", that is loaded and tinted
/// when it is first needed, and kept. When it cannot be loaded, which is tried once,
/// the insect keeps the sprite that it has.
void setTintedSprite(Insect &insect);
