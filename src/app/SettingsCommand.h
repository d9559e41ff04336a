#pragma once

#include "app/CommandLine.h"

namespace pello {

/// Reads or changes the settings and prints the answer; a running launcher follows by itself.
/// Returns the exit status.
[[nodiscard]] int run(const SettingsCommand& command);

} // namespace pello
