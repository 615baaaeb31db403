#pragma once

#include "SpriteLoader.h"

#include <string>

/// Shows sprites on standard output.

/// Whether standard output is a terminal.
bool isTerminal();

/// Prints one frame: in the sprite's colour on a terminal, else its characters as
/// they are, and nothing else.
/// @param frame 0 up to but not including the sprite's frame count
void printFrame(const gw::Sprite &sprite, int frame);

/// Prints all frames, one under the other.
void printFrames(const gw::Sprite &sprite);

/// Plays a good file on the terminal, at the game's speed, until the user interrupts;
/// then the terminal is as it was.
void play(const std::string &filename, const LoadedSprite &loaded);

/// Shows a file now and whenever it has changed, until the user interrupts: played
/// on a terminal, else printed. Of a bad file it shows the messages.
void watch(const std::string &filename, SpriteLoader &loader);
