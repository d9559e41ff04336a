#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Prints what was learned, last used first, or forgets a part of it; a running launcher follows by
/// itself. Returns the exit status.
[[nodiscard]] int run(const LearnedCommand& command);

} // namespace pello
