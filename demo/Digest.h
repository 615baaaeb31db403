#pragma once

#include <cstdint>

/// One number for the game's whole state: every object in list order with all its
/// fields, what the board and the row hold, and the generator. Equal states give
/// equal digests on every machine and with every compiler.
std::uint64_t digestOfGame();
