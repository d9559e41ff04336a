#pragma once

#include "platform/linux/ProcessPlan.h"

#include <sys/types.h>

namespace pello {

/// A program on its way.
struct StartedProcess {
    /// Its process id; -1 when not even a process could be made.
    pid_t pid = -1;
    /// Why there is no process, as an error number; 0 otherwise.
    int error = 0;
    /// A descriptor that becomes readable when the program runs (its end, nothing to read) or could
    /// not (an `int`, the error number). The caller closes it. -1 when there is no process.
    int outcome = -1;
};

/// Starts a program that has nothing to do with this process from then on.
///
/// It is no child of this process and leads a session of its own; its standard streams lead
/// nowhere, no other descriptor is open in it, no signal blocked, ignored or handled. Does not wait
/// for the program to be loaded. Any thread.
[[nodiscard]] StartedProcess startDetached(const ProcessPlan& plan);

} // namespace pello
