#pragma once

#include <filesystem>

namespace gw {

/// The path of the running program's file, or what comes closest where the platform does
/// not tell.
/// @param p_program by what name it was started, `argv[0]`
std::filesystem::path findExecutable(const char *p_program);

} // namespace gw
