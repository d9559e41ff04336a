#include "Stopwatch.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <numeric>

namespace pello::bench {

double threadTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double leastTime(std::size_t runs, const std::function<void()>& action) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < runs; ++i) {
        const double begin = threadTime();
        action();
        least = std::min(least, threadTime() - begin);
    }
    return least;
}

double Times::mean() const {
    return seconds.empty() ? 0
                           : std::accumulate(seconds.begin(), seconds.end(), 0.0) /
                                 static_cast<double>(seconds.size());
}

double Times::quantile(double share) const {
    if (seconds.empty()) {
        return 0;
    }
    std::vector<double> sorted = seconds;
    std::sort(sorted.begin(), sorted.end());
    const auto last = static_cast<double>(sorted.size() - 1);
    return sorted[static_cast<std::size_t>(std::ceil(share * last))];
}

} // namespace pello::bench
