#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace pello::bench {

/// The processor time of this thread, in seconds.
[[nodiscard]] double threadTime();

/// The least processor time of several runs, in seconds: what others do on the machine only adds.
[[nodiscard]] double leastTime(std::size_t runs, const std::function<void()>& action);

/// Times of many keystrokes, in seconds.
struct Times {
    std::vector<double> seconds;

    [[nodiscard]] double mean() const;
    /// The value that `share` (0 to 1) of the times do not exceed.
    [[nodiscard]] double quantile(double share) const;
};

} // namespace pello::bench
