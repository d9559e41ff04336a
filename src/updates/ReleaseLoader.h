#pragma once

#include "base/LatestOnly.h"
#include "base/Subscription.h"
#include "platform/FeedReader.h"
#include "platform/MainLoop.h"
#include "updates/ReleaseFeed.h"
#include "updates/UpdateVerdict.h"

#include <functional>
#include <string>

namespace pello {

/// Brings the releases from where their feed stands. Reads nothing before it is told to. Main
/// thread only.
class ReleaseLoader {
public:
    /// Both must outlive the loader.
    ReleaseLoader(FeedReader& reader, MainLoop& loop, std::string address);

    /// Calls `done` in a later turn of the loop, unless the loader ends or is told again before.
    void load(std::function<void(const ReleaseFeed::Contents& contents)> done);

    [[nodiscard]] UpdateVerdict::Place place() const;

private:
    FeedReader& reader_;
    MainLoop& loop_;
    std::string address_;
    Subscription reading_;
    LatestOnly parsing_;
};

} // namespace pello
