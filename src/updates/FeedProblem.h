#pragma once

#include <string>

namespace pello {

/// Why there are no releases to be shown, in words for the user.
struct FeedProblem {
    /// What is the matter.
    std::string title;
    /// More about it, or what to do.
    std::string message;
};

} // namespace pello
