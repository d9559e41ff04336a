#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

/// What an alignment of a query with a text earns and costs.
namespace pello::MatchScore {

// Bonus of the position that a query character sits on.
inline constexpr std::uint8_t kStartBonus = 12;     // first character of the text
inline constexpr std::uint8_t kSeparatorBonus = 10; // after a separator
inline constexpr std::uint8_t kHumpBonus = 8;       // an upper-case letter after a lower-case one
inline constexpr std::uint8_t kNumberBonus = 6;     // between a letter and a number

/// Every matched character.
inline constexpr int kMatch = 16;
/// The least bonus of a character matched right after the one before.
inline constexpr int kConsecutiveBonus = kHumpBonus;
/// Every text character skipped before the first match or between two.
inline constexpr int kSkipped = 1;
/// Every text character beyond the length of the query.
inline constexpr double kSurplus = 0.35;
/// Every position that the first match stands away from the start.
inline constexpr double kFirstPosition = 0.5;

/// A keyword or a combined text counts this part of its score.
inline constexpr double kKeywordFactor = 0.55;
/// A keyword that is the query, whatever the query's length.
inline constexpr double kExactKeyword = 200;
/// What lists put on top whatever their score.
inline constexpr double kTop = std::numeric_limits<double>::infinity();

/// The score of an alignment that earned `total` and begins at `start`. The order of the
/// operations is part of the result: scores are compared exactly.
[[nodiscard]] inline double score(int total, std::size_t textLength, std::size_t queryLength,
                                  std::size_t start) {
    const auto surplus = static_cast<double>(textLength - queryLength);
    return static_cast<double>(total) - kSurplus * surplus -
           kFirstPosition * static_cast<double>(start);
}

} // namespace pello::MatchScore
