#pragma once

/// Sets the game up in a started engine; the entry of the program calls both, in
/// this order, before it runs the loop. Everything that plays the game by other
/// means does the same.

/// Loads every sprite, sound and piece of music. What cannot be loaded is in the
/// log, and the game goes without it. Paths are relative to the working
/// directory.
void loadResources();

/// Creates the border and the start menu.
void populateGame();
