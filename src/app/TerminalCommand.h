#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Runs the launcher in the terminal until its input ends. Returns the exit status.
[[nodiscard]] int run(const TerminalCommand& command);

} // namespace pello
