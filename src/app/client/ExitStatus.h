#pragma once

/// The exit statuses of the program.
namespace pello::ExitStatus {

inline constexpr int kSuccess = 0;
/// Nothing matches, or nothing could be done.
inline constexpr int kNothing = 1;
/// The command line was not understood, or names something that does not exist.
inline constexpr int kUsage = 2;
/// No launcher is running.
inline constexpr int kNotRunning = 3;

} // namespace pello::ExitStatus
