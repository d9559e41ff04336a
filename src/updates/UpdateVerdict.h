#pragma once

#include "updates/ReleaseFeed.h"

#include <optional>
#include <string>

namespace pello {

/// What a check for updates found, in words for the user.
struct UpdateVerdict {
    enum class Kind { newer, current, ahead, unknown };
    /// Where the feed that was asked stands.
    enum class Place { network, thisComputer };

    Kind kind = Kind::unknown;
    std::string title;
    std::string message;
    /// The newest release, when there is one newer than what is installed.
    std::optional<Release> release;

    /// Compares the version `installed` with what `contents` lists.
    [[nodiscard]] static UpdateVerdict of(const ReleaseVersion& installed,
                                          const ReleaseFeed::Contents& contents, Place place);
};

} // namespace pello
