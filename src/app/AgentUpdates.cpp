#include "app/AgentUpdates.h"

#include "app/ReleaseFeedAddress.h"
#include "app/Version.h"

#include <utility>

namespace pello {

AgentUpdates::AgentUpdates(PelloController& controller, Platform platform)
    : controller_(controller), platform_(std::move(platform)), reader_(platform_.loop) {
    controller_.onCheckForUpdates = [this] { checkForUpdates(); };
    controller_.onShowReleaseNotes = [this] { showReleaseNotes(); };
}

/// The windows go before what they work with.
AgentUpdates::~AgentUpdates() {
    controller_.onCheckForUpdates = nullptr;
    controller_.onShowReleaseNotes = nullptr;
    delete notes_.data();
    delete check_.data();
}

NotesServices AgentUpdates::services() {
    return {.reader = reader_,
            .loop = platform_.loop,
            .feed = releaseFeedAddress(),
            // The build's own version is one, as a test of the feed asserts.
            // NOLINTNEXTLINE(bugprone-unchecked-optional-access)
            .installed = ReleaseVersion::from(kVersion).value(),
            .openAddress = [this](const std::string& address) {
                platform_.workspace.openAddress(address);
            }};
}

void AgentUpdates::showReleaseNotes() {
    if (!notes_) {
        notes_ = new NotesWindow(services()); // deletes itself when it is closed
    }
    notes_->present();
}

void AgentUpdates::checkForUpdates() {
    if (!check_) {
        check_ = new UpdateDialog(services(), [this] { showReleaseNotes(); });
    }
    check_->present();
}

} // namespace pello
