#pragma once

#include "TextScreen.h"

#include <string>

namespace gw {

/// The screen as a text that a person can read and a file can keep: its rows, then their
/// colours as letters, in frames.
std::string toText(const TextScreen &screen);

/// In what a screen differs from a text that `toText` made: the rows that differ, as two
/// pictures, with their numbers. Empty when nothing does.
std::string differencesFrom(const std::string &expected, const TextScreen &screen);

} // namespace gw
