#pragma once

#include "platform/EnvironmentVariables.h"

#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// A process's environment variables, as a value. An empty variable counts as unset.
struct Environment {
    EnvironmentVariables variables;

    /// What this process was started with. Call it before threads change the environment.
    [[nodiscard]] static Environment ofThisProcess();

    /// Without what this process alone was told about itself.
    [[nodiscard]] Environment forOtherPrograms() const;

    /// The variable's value; empty when it is unset. Lives as long as this object is unchanged.
    [[nodiscard]] std::string_view value(std::string_view name) const;

    /// The non-empty parts of a variable that holds a list with `separator`s.
    [[nodiscard]] std::vector<std::string> list(std::string_view name, char separator = ':') const;
};

} // namespace pello
