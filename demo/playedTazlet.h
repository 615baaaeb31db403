#pragma once

#include "Game.h"

/// Tazlet with players of its own, for the runner. At the end of a run it prints what was
/// reached.
gw::Game playedTazlet();

/// The `main` of the demo: it plays by itself where nobody else is asked for.
int playDemo(int argc, char *argv[]);
