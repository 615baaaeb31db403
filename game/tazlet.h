#pragma once

/// The program: starts the engine, sets the game up, runs it and shuts the engine down.
/// @return the process's exit status; 1 when the engine does not start, which the log
/// tells
int playTazlet();

// They set the game up in a started engine: the program calls both, in this order, before
// it runs the loop. Everything that plays the game by other means does the same.

/// Loads every sprite, sound and piece of music. What cannot be loaded is in the
/// log, and the game goes without it. Paths are relative to the working
/// directory.
void loadResources();

/// Creates the border and the start menu.
void populateGame();
