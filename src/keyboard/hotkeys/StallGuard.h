#pragma once

#include "base/Date.h"

#include <cstddef>
#include <vector>

namespace pello {

/// Counts how often the system switched the tap off for being slow, and says when to give up: at
/// the second time within ten seconds.
class StallGuard {
public:
    static constexpr int kWindowSeconds = 10;

    /// One more time. True when it is time to give up.
    [[nodiscard]] bool noteTimeoutAndCheckTrip(Date now);

    /// How many times fell into the window at the last one.
    [[nodiscard]] std::size_t count() const { return recentTimeouts_.size(); }

    void reset() { recentTimeouts_.clear(); }

private:
    std::vector<Date> recentTimeouts_;
};

} // namespace pello
