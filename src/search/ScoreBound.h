#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace pello {

/// How well a query can score at most, before an alignment is looked for.
///
/// Every bound is at least the true score; ScoreBound.cpp has the proofs. A text may be left out
/// when its bound is below what it takes, never when it is equal.
class ScoreBound {
public:
    /// For the query with these characters.
    explicit ScoreBound(std::span<const std::string> query);

    /// The most that a text of `length` characters can score.
    [[nodiscard]] double byLength(std::size_t length) const;

    /// How many leading characters of a text of this length must contain the whole query in
    /// order, for the text to be able to score `needed`. At most `length`.
    [[nodiscard]] std::size_t reach(std::size_t length, double needed) const;

    /// The most that a text of at most 64 characters can score, given where the query's
    /// characters fit: bit p of `fits[i]` for character i at position p (see PositionMask), with
    /// the characters before it as early as possible. Narrows `fits` to where the characters
    /// after it fit as well. `bonuses` is readable for 64 bytes.
    [[nodiscard]] double byBonuses(std::span<std::uint64_t> fits,
                                   std::span<const std::uint8_t> bonuses) const;

private:
    std::size_t count_ = 0;
    double netCeiling_ = 0;
    double grossCeiling_ = 0;
};

} // namespace pello
