#include "updates/UpdateVerdict.h"

namespace pello {

UpdateVerdict UpdateVerdict::of(const ReleaseVersion& installed,
                                const ReleaseFeed::Contents& contents, Place place) {
    if (const auto* problem = std::get_if<FeedProblem>(&contents)) {
        return {.title = problem->title, .message = problem->message};
    }
    const auto& releases = std::get<std::vector<Release>>(contents);
    if (releases.empty()) {
        return {.title = "There is nothing to compare with",
                .message = "The release notes name no release."};
    }
    const Release& newest = releases.front();
    const std::string yours = "You have Pello " + installed.text() + '.';
    if (newest.version > installed) {
        return {.kind = Kind::newer,
                .title = "Pello " + newest.version.text() + " is available",
                .message = yours,
                .release = newest};
    }
    // Without a server to ask, nothing is known of what has come out since.
    const bool isSure = place == Place::network;
    const std::string since = isSure ? ""
                                     : " Only the release notes on this computer were asked: newer "
                                       "versions come the way Pello was installed.";
    if (newest.version < installed) {
        return {.kind = Kind::ahead,
                .title = "Your Pello is newer than any release",
                .message = yours + " The newest release is " + newest.version.text() + '.' + since};
    }
    return {.kind = Kind::current,
            .title = isSure ? "Pello is up to date" : "No newer Pello is known here",
            .message = yours + since};
}

} // namespace pello
