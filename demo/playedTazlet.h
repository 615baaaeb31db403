#pragma once

#include "Game.h"

/// Tazlet with players of its own, for the runner. At the end of a run it prints what was
/// reached.
gw::Game playedTazlet();
