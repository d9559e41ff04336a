#pragma once

#include "app/client/ClientCommand.h"
#include "app/client/PickCommand.h"
#include "app/client/VersionCommand.h"

#include <optional>
#include <span>
#include <variant>

namespace pello {

using QuickCommand = std::variant<ClientCommand, PickCommand, VersionCommand>;

/// What `arguments`, those after the program's name, ask for, where they ask in the plainest way
/// for something that takes no more than this program. Nothing for all others, wrong ones included:
/// the full program understands them, or says what is wrong.
[[nodiscard]] std::optional<QuickCommand> quickCommand(std::span<const char* const> arguments);

} // namespace pello
