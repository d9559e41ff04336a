#pragma once

#include <nlohmann/json.hpp>
#include <sys/types.h>

#include <string>
#include <vector>

namespace pello::bench {

/// Milliseconds of a clock that only goes forward.
[[nodiscard]] double nowMs();

/// Waits without looking at anything.
void sleepMs(double duration);

/// Collects what this process starts, also what detaches itself: call it once, first of all.
void adoptOrphans();

/// Starts `command`: words, and quotes around those with blanks. Its output goes to the file that
/// the environment variable BENCH_LOG names. Ends this program when it cannot be run.
void launch(const std::string& command);

/// All processes that were started from here and still run.
[[nodiscard]] std::vector<pid_t> startedProcesses();

/// Ends them, by force where asking does not help.
void endStartedProcesses();

/// Processor time in milliseconds: of these processes with all their threads, and of those that
/// were started from here and have ended.
[[nodiscard]] double processorTime(const std::vector<pid_t>& processes);
[[nodiscard]] double processorTimeOfEnded();

/// The memory of these processes in megabytes, shared pages counted by their part (PSS).
[[nodiscard]] nlohmann::json memoryOf(const std::vector<pid_t>& processes);

/// How often they wake up and what they use, over so many seconds in which nothing is asked of
/// them.
[[nodiscard]] nlohmann::json idleOver(int seconds, const std::vector<pid_t>& processes);

} // namespace pello::bench
