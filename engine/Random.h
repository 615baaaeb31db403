#pragma once

namespace gw {

/// @file
/// The engine's random numbers. A seed gives the same numbers on every platform, which
/// `std::rand` does not. A linear congruential generator, modulus 2^32; 15 bits of its
/// state are the result.

/// Starts the sequence that belongs to `seed`. Without a call it is that of seed 1.
void srand(unsigned seed);

/// The next number, 0 to 32767 inclusive.
int rand();

/// The whole state of the generator: what `srand` would have to be given for
/// the sequence to go on from here.
unsigned getRandState();

} // namespace gw
