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
/// The world's, not the caller's.
template <class T> T *findFirst(const std::string &type) {
  const gw::ObjectList found = gw::WorldManager::getInstance().getAllObjectsOfType(type);
  return found.isEmpty() ? nullptr : dynamic_cast<T *>(found[0]);
}

/// Shows a butterfly or glidewing in its own colour: with a copy of its kind's
/// sprite, labelled for instance "glidewingcolorcyan", that is loaded and tinted
/// when it is first needed, and kept. When it cannot be loaded, the insect keeps
/// the sprite that it has.
void setTintedSprite(Insect &insect);
