#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pello {

/// A text as the score table sees it: what its characters are, lower-cased, and what they earn.
/// Borrowed. `Unit` is a byte or a `char32_t`; two characters are equal when their units are.
template <class Unit>
struct ScoredText {
    std::span<const Unit> characters;
    /// One per character.
    std::span<const std::uint8_t> bonuses;
};

/// Finds the best alignment of a query with a text that contains it in order.
///
/// Keeps its working memory from one text to the next, so that nothing is allocated once it has
/// seen the largest. One thread at a time.
class ScoreTable {
public:
    /// The final score. The query must not be empty.
    template <class Unit>
    [[nodiscard]] double score(std::span<const Unit> query, ScoredText<Unit> text);

    /// The text position of each query character in the best alignment, ascending. The query must
    /// not be empty.
    template <class Unit>
    [[nodiscard]] std::vector<int> positions(std::span<const Unit> query, ScoredText<Unit> text);

    /// How many tables were filled so far.
    [[nodiscard]] std::size_t filledCount() const { return filledCount_; }

private:
    /// The best alignment whose latest match sits on a position.
    struct Cell {
        int bonuses;
        int start;
    };
    /// Where a query character can lie.
    struct Range {
        std::size_t first;
        std::size_t last;
    };

    template <class Unit>
    void fill(std::span<const Unit> query, ScoredText<Unit> text);
    template <class Unit>
    void findRanges(std::span<const Unit> query, std::span<const Unit> text);
    template <class Unit>
    void fillRow(std::size_t i, Unit character, ScoredText<Unit> text);
    [[nodiscard]] Cell bestAfter(std::size_t i, std::size_t j, Cell gap, int bonus);
    [[nodiscard]] std::size_t end(std::size_t row);
    [[nodiscard]] std::size_t predecessor(std::size_t i, std::size_t p, int bonus);

    Cell& cell(std::size_t i, std::size_t j) { return cells_[i * width_ + (j - i)]; }

    std::vector<Range> ranges_;
    std::vector<Cell> cells_;
    std::size_t width_ = 0;
    std::size_t filledCount_ = 0;
};

} // namespace pello
