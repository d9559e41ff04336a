#pragma once

#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "search/PreparedList.h"
#include "search/UsageStore.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pello::testing {

/// Where a random case takes its numbers from: a generator in tests, the fuzzer's bytes elsewhere.
/// Gives a number from 0 to before `bound`.
using Draw = std::function<std::size_t(std::size_t bound)>;

/// A random text: ASCII or from the odd corners of Unicode.
[[nodiscard]] std::string randomText(const Draw& draw);

/// Where the matcher differs from the naive one, in words; empty when they agree in every bit.
[[nodiscard]] std::string matchDifference(std::string_view query, std::string_view candidate);

/// A random catalogue with everything that searching can go wrong on: texts of few characters, so
/// that much matches and much is equal, from ASCII and the odd corners of Unicode; shared, repeated
/// and empty keywords; several lists; learned items and bound queries.
struct RandomSearch {
    explicit RandomSearch(const Draw& draw);

    MemoryUserDefaults defaults;
    MemoryMainLoop loop{Date{700000000}};
    UsageStore usage{defaults, loop};
    Catalogue catalogue;
    std::vector<LaunchItemRef> actions;

    /// What a user types letter by letter: a text of the catalogue, part of one, or any characters,
    /// with blanks here and there. Never ends in the middle of a scalar.
    [[nodiscard]] std::vector<std::string> typedQueries(const Draw& draw) const;

    /// Runs an item or lets time pass.
    void use(const Draw& draw);

    /// Publishes another list for one of the sources.
    void replaceList(const Draw& draw);

    [[nodiscard]] static std::ptrdiff_t limit(const Draw& draw);

    /// Where the engine's results for `query` differ from the naive ones, in words; empty when
    /// they agree in every bit.
    [[nodiscard]] std::string difference(const std::string& query, std::ptrdiff_t limit) const;
};

} // namespace pello::testing
