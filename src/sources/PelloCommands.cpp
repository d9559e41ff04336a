#include "sources/PelloCommands.h"

namespace pello::PelloCommands {

std::vector<LaunchItem> items(const Actions& actions) {
    return {{.id = "cmd:pello-update",
             .title = "Check for Updates",
             .subtitle = "See if a newer Pello is available",
             .kind = LaunchItem::Kind::command,
             .icon = LaunchItem::SymbolIcon{"arrow.down.circle"},
             .keywords = {"pello", "pello update", "update", "upgrade", "sparkle"},
             .accessory = "Pello",
             .run = actions.checkForUpdates},
            {.id = "cmd:pello-changelog",
             .title = "What's New in Pello",
             .subtitle = "Release notes for recent versions",
             .kind = LaunchItem::Kind::command,
             .icon = LaunchItem::SymbolIcon{"list.bullet.rectangle"},
             .keywords = {"pello", "pello changelog", "changelog", "release notes", "whats new",
                          "news"},
             .accessory = "Pello",
             .run = actions.showReleaseNotes}};
}

} // namespace pello::PelloCommands
