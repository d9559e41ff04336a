#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Passes the verb to the running launcher. Returns the exit status.
[[nodiscard]] int run(const ClientCommand& command);

} // namespace pello
