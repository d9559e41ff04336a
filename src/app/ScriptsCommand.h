#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Prints the scripts, one a line: name, keyword, argument mode and file, and on standard error
/// what is wrong with other files; or runs one in place of this program. Returns the exit status,
/// of a script that runs only when it could not be started.
[[nodiscard]] int run(const ScriptsCommand& command);

} // namespace pello
