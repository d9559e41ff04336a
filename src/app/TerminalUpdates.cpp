#include "app/TerminalUpdates.h"

#include "app/ReleaseFeedAddress.h"
#include "app/Version.h"

namespace pello {

TerminalUpdates::TerminalUpdates(PelloController& controller, MainLoop& loop)
    : controller_(controller), reader_(loop), loader_(reader_, loop, releaseFeedAddress()) {
    controller_.onCheckForUpdates = [this] {
        loader_.load([this](const ReleaseFeed::Contents& contents) { tell(contents); });
    };
    controller_.onShowReleaseNotes = [this] {
        controller_.report("The release notes have a window, which a terminal cannot show. Their "
                           "text is at " +
                           releaseFeedAddress());
    };
}

TerminalUpdates::~TerminalUpdates() {
    controller_.onCheckForUpdates = nullptr;
    controller_.onShowReleaseNotes = nullptr;
}

void TerminalUpdates::tell(const ReleaseFeed::Contents& contents) {
    // The build's own version is one, as a test of the feed asserts.
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access)
    const ReleaseVersion installed = ReleaseVersion::from(kVersion).value();
    const auto verdict = UpdateVerdict::of(installed, contents, loader_.place());
    controller_.report(verdict.title + ". " + verdict.message);
}

} // namespace pello
