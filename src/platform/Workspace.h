#pragma once

#include "base/Signal.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace pello {

/// The desktop as the place where things are opened. Returns at once; main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Starts the application described at `application`, or brings it forward where the platform
    /// does that. What it starts outlives this program.
    virtual void openApplication(const std::filesystem::path& application) = 0;

    /// Opens an absolute address with the user's handler for its scheme.
    virtual void openAddress(std::string_view address) = 0;

    /// Shows `file` selected in the file viewer.
    virtual void reveal(const std::filesystem::path& file) = 0;

    /// Something could not be opened: a sentence for the user.
    Signal<const std::string&> failed;
};

} // namespace pello
