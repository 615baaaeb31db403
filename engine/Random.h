#pragma once

namespace gw {

/// The one source of chance, the same on every platform so that a seed gives
/// the same game everywhere (a platform's own `rand` differs in range and
/// sequence). A linear congruential generator, modulus 2^32; 15 bits of its
/// state are the result.

/// Starts the sequence that belongs to `seed`. Unseeded, it is that of seed 1.
void srand(unsigned seed);

/// The next number, 0 to 32767 inclusive.
int rand();

/// The whole state of the generator: what `srand` would have to be given for
/// the sequence to go on from here.
unsigned getRandState();

} // namespace gw
