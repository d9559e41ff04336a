#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Decides whether a typed query is contained in a text in order, and how well.
///
/// Rewards matches at the starts of words and in runs; charges for gaps, a late first match and a
/// long text. Stateless; safe on any thread. The search over whole lists prepares its texts
/// instead (PreparedList), with the same result.
namespace pello::FuzzyMatcher {

struct Match {
    /// Higher is better.
    double score = 0;
    /// For each query character the candidate position that it matched, counted in characters of
    /// the lower-cased candidate, ascending.
    std::vector<int> positions;

    friend bool operator==(const Match&, const Match&) = default;
};

/// The best alignment of `query`, characters in lower case, with `candidate` in any case. An empty
/// query matches everything with score 0.
[[nodiscard]] std::optional<Match> match(std::span<const std::string> query,
                                         std::string_view candidate);

} // namespace pello::FuzzyMatcher
