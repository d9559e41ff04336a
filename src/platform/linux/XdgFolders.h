#pragma once

#include "platform/linux/Environment.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace pello {

/// Where a user's files of each kind live, by the freedesktop base directory rules. Absolute paths;
/// the folders need not exist.
struct XdgFolders {
    std::filesystem::path home;
    std::filesystem::path config;
    std::filesystem::path data;
    std::filesystem::path state;
    /// Sockets and the like, gone at logout; absent where the session has none.
    std::optional<std::filesystem::path> runtime;
    /// The system's data folders in order of precedence, after `data`.
    std::vector<std::filesystem::path> systemData;
};

/// The folders that `environment` names. Unset and relative values count as the defaults.
[[nodiscard]] XdgFolders xdgFolders(const Environment& environment);

} // namespace pello
