// The search against the naive one: a catalogue, its use and what is typed are drawn from the
// input, and every row must agree in every bit.

#include "support/RandomSearch.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using pello::testing::RandomSearch;

void require(const std::string& difference) {
    if (!difference.empty()) {
        std::fputs(difference.c_str(), stderr);
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::size_t next = 0;
    const auto draw = [&](std::size_t bound) {
        // Two bytes a number; past the end of the input everything is 0, so that it ends.
        const std::size_t low = next < size ? data[next] : 0;
        const std::size_t high = next + 1 < size ? data[next + 1] : 0;
        next += 2;
        return (low | high << 8) % bound;
    };
    RandomSearch search(draw);
    while (next < size) {
        const auto limit = RandomSearch::limit(draw);
        for (const std::string& query : search.typedQueries(draw)) {
            require(search.difference(query, limit));
        }
        require(search.difference("", limit));
        require(pello::testing::matchDifference(pello::testing::randomText(draw),
                                                pello::testing::randomText(draw)));
        search.use(draw);
        if (draw(4) == 0) {
            search.replaceList(draw);
        }
    }
    return 0;
}
