#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Runs the launcher with its panel until it is told to quit; takes over from one that runs
/// already. Returns the exit status.
[[nodiscard]] int runAgent(const AgentCommand& command, int argc, char** argv);

} // namespace pello
