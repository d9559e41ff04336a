#pragma once

#include "scripts/ScriptCommand.h"

#include <string>
#include <string_view>

namespace pello {

/// How the rows of scripts are told apart.
struct ScriptItem {
    /// The id of the row that runs `command`.
    [[nodiscard]] static std::string id(const ScriptCommand& command);

    /// The id of the row that runs `command` with `argument`; with none, as above.
    [[nodiscard]] static std::string id(const ScriptCommand& command, std::string_view argument);
};

} // namespace pello
