#pragma once

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/ProcessPlan.h"

namespace pello {

/// A program that is kept: the line to the process that does so.
struct KeptProcess {
    /// Sends a `KeeperReport` and what belongs to it when the program has ended, then ends; takes
    /// `KeeperRequest`s until then. Never waits. None when not even the keeper could be made.
    FileDescriptor line;
    /// Why there is no line, as an error number; 0 otherwise.
    int error = 0;
};

/// Starts a program in a session of its own, and a small process that keeps it: reads what it
/// prints, waits for its end and reports it.
///
/// The keeper is no child of this process and outlives it: whatever becomes of this process, the
/// program can go on printing. Neither leaves anything to wait for. Any thread.
[[nodiscard]] KeptProcess startKept(const ProcessPlan& plan);

} // namespace pello
