#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Prints the texts with which something was run, the last one first, or forgets them; a running
/// launcher follows by itself. Returns the exit status.
[[nodiscard]] int run(const HistoryCommand& command);

} // namespace pello
