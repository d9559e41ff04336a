#pragma once

#include "platform/FileAccess.h"

#include <set>
#include <system_error>

namespace pello {

/// A user who may execute what its owner may, but for some files.
class MemoryFileAccess final : public FileAccess {
public:
    [[nodiscard]] bool canExecute(const std::filesystem::path& file) const override {
        std::error_code error;
        const auto permissions = std::filesystem::status(file, error).permissions();
        const bool ownerMay =
            (permissions & std::filesystem::perms::owner_exec) != std::filesystem::perms::none;
        return !error && ownerMay && !forbidden.contains(file);
    }

    std::set<std::filesystem::path> forbidden;
};

} // namespace pello
