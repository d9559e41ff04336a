#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Scans this machine's applications and prints what the text finds among them. Returns the exit
/// status.
[[nodiscard]] int run(const QueryCommand& command);

} // namespace pello
