#include "Random.h"

#include <cstdint>

namespace gw {

namespace {

std::uint32_t state = 1;

} // namespace

void srand(unsigned seed) {
  state = seed;
}

int rand() {
  state = state * 214013u + 2531011u;
  return static_cast<int>((state >> 16) & 0x7fff);
}

unsigned getRandState() {
  return state;
}

} // namespace gw
