#pragma once

#include <filesystem>

namespace pello {

/// What the user may do with files. Any thread.
class FileAccess {
public:
    virtual ~FileAccess() = default;

    /// Whether the user may execute `file`. False for what is not there.
    [[nodiscard]] virtual bool canExecute(const std::filesystem::path& file) const = 0;
};

} // namespace pello
