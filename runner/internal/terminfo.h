#pragma once

#include <cstddef>
#include <string>

namespace gw {

/// @file
/// What the system knows of the terminal's type. Apart from the terminal itself, because
/// the library's header turns hundreds of common words into macros.

/// What keeps the standard input and output from being a terminal with a pointer and so
/// many colours; empty if nothing does.
std::string findTerminalProblem(std::size_t color_count);

/// What a terminal is sent to show characters as before, from the place where it was
/// before.
std::string resettingText();

} // namespace gw
