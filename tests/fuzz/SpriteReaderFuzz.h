#pragma once

#include <string>

/// Reads a sprite file's content and ends the process if what comes out is not a
/// sound sprite. Shared by the fuzzer (scripts/soak) and the tests, which replay
/// what it found.
/// @return whether it was accepted
bool readFuzzInput(const std::string &content);
