#include "core/controller/OwnCommands.h"

#include "sources/PelloCommands.h"

namespace pello {
namespace {

std::function<void()> calling(const std::function<void()>& action) {
    return [&action] {
        if (action) {
            action();
        }
    };
}

} // namespace

std::shared_ptr<const PreparedList> ownCommands(const std::function<void()>& checkForUpdates,
                                                const std::function<void()>& showReleaseNotes) {
    return PreparedList::make(
        PelloCommands::items({.checkForUpdates = calling(checkForUpdates),
                              .showReleaseNotes = calling(showReleaseNotes)}));
}

} // namespace pello
