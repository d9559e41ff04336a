#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Prints what Pello wrote to its log, from the journal where there is one. Returns the exit
/// status, or does not return: it becomes the program that reads the log.
[[nodiscard]] int run(const LogsCommand& command);

} // namespace pello
