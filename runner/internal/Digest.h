#pragma once

#include <cstdint>

namespace gw {

struct Game;

/// One number for the whole state of a running game: every object in list order with all
/// that the engine knows of it and what the game adds, the generator, and the text on the
/// screen where it is kept.
std::uint64_t digestOf(const Game &game);

} // namespace gw
