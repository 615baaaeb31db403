#pragma once

/// @file

namespace gw {

/// Ends the process (`abort`) after a line in the log (CRITICAL), if there is one, and
/// one on the standard error stream. Called by `GW_ASSERT`.
[[noreturn]] void failAssertion(const char *condition, const char *message,
                                const char *file, int line);

} // namespace gw

/// @def GW_ASSERT
/// Says what must hold here unless our own program is wrong, and what it means when it
/// does not. Never for what players, files or the machine may do: that is answered, not
/// asserted. On in every build but those that are shipped, which do not even look
/// (`GW_NO_ASSERTIONS`); the condition must have no effect of its own.
#ifdef GW_NO_ASSERTIONS
#define GW_ASSERT(condition, message) static_cast<void>(true || (condition))
#else
#define GW_ASSERT(condition, message)                                                    \
  ((condition) ? static_cast<void>(0)                                                    \
               : gw::failAssertion(#condition, message, __FILE__, __LINE__))
#endif
