#pragma once

#include "platform/linux/Environment.h"

#include <optional>
#include <string>
#include <vector>

namespace pello {

/// `command` as a terminal emulator of this machine is told to run it: `$TERMINAL`, else the
/// system's default, else the first known one. Nothing when there is none.
[[nodiscard]] std::optional<std::vector<std::string>>
inTerminal(const std::vector<std::string>& command, const Environment& environment);

} // namespace pello
