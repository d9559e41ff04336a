#pragma once

#include "core/items/LaunchItem.h"

#include <functional>
#include <vector>

/// The commands that are about the launcher itself.
namespace pello::PelloCommands {

/// What the commands do. Main thread only.
struct Actions {
    /// Looks for a newer version because the user asked for it.
    std::function<void()> checkForUpdates;
    /// Opens the release notes.
    std::function<void()> showReleaseNotes;
};

/// The two commands; they own `actions`.
[[nodiscard]] std::vector<LaunchItem> items(const Actions& actions);

} // namespace pello::PelloCommands
