#pragma once

#include "base/PropertyValue.h"
#include "platform/linux/FileStamp.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace pello {

/// What reading a file that should hold a dictionary came to.
struct PropertyListFile {
    enum class State {
        read,      ///< `values` and `stamp` tell the content
        absent,    ///< there is no file
        damaged,   ///< there is one, and it holds no dictionary
        unreadable ///< nobody knows what it holds; `error` says why
    };

    State state = State::absent;
    PropertyDictionary values;
    std::optional<FileStamp> stamp;
    std::error_code error;

    /// Reads `file`. Any thread.
    [[nodiscard]] static PropertyListFile load(const std::filesystem::path& file);
};

} // namespace pello
