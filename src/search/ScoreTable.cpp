// The alignment with the best score, in integers.
//
// M[i][j], the best alignment of the query's first i+1 characters that ends on position j, earns
// 16 for each character and the bonuses of its positions, and pays 1 for each text character that
// it skips up to j. However the matches lie, i+1 of the first j+1 characters are matched and j-i
// are skipped, so
//
//     M[i][j] = 16 (i+1) + A[i][j] - (j-i),      A = the sum of the bonuses taken.
//
// Only A has to be carried. After a gap the position's bonus b counts, right after the previous
// match at least 8:
//
//     A[0][j] = b[j]
//     A[i][j] = max( max over k < j-1 of A[i-1][k]  +  b[j],
//                                      A[i-1][j-1]  +  max(b[j], 8) )
//
// so a row needs one running maximum of the row above. Its leftmost place wins ties, and a match
// after a gap wins against a consecutive one: of equal alignments the leftmost is the result. The
// start travels with each cell by the same rule.
//
// Query character i can only lie between its first fit (the earliest place, with all characters
// before it as early as possible) and its last fit (the same from the end): other cells are on no
// complete alignment. It has at least i characters before it and n-1-i after it, so m-n+1 columns
// hold a row:
//
//     text            x a b a c a       first fit  a:1 c:4
//     query a, row 0    . . .           last fit   a:3 c:4
//     query c, row 1          .

#include "search/ScoreTable.h"

#include "search/MatchScore.h"

#include <algorithm>
#include <limits>

namespace pello {
namespace {

constexpr int kUnmatched = std::numeric_limits<int>::min() / 2;

} // namespace

template <class Unit>
double ScoreTable::score(std::span<const Unit> query, ScoredText<Unit> text) {
    fill(query, text);
    const std::size_t n = query.size();
    const std::size_t e = end(n - 1);
    const Cell& best = cell(n - 1, e);
    const auto skipped = static_cast<int>(e - (n - 1)) * MatchScore::kSkipped;
    const int total = MatchScore::kMatch * static_cast<int>(n) + best.bonuses - skipped;
    return MatchScore::score(total, text.characters.size(), n,
                             static_cast<std::size_t>(best.start));
}

template <class Unit>
std::vector<int> ScoreTable::positions(std::span<const Unit> query, ScoredText<Unit> text) {
    fill(query, text);
    std::vector<int> result(query.size());
    std::size_t p = end(query.size() - 1);
    for (std::size_t i = query.size() - 1; i > 0; --i) {
        result[i] = static_cast<int>(p);
        p = predecessor(i, p, text.bonuses[p]);
    }
    result[0] = static_cast<int>(p);
    return result;
}

template <class Unit>
void ScoreTable::fill(std::span<const Unit> query, ScoredText<Unit> text) {
    ++filledCount_;
    findRanges(query, text.characters);
    width_ = text.characters.size() - query.size() + 1;
    if (cells_.size() < width_ * query.size()) {
        cells_.resize(width_ * query.size());
    }
    for (std::size_t i = 0; i < query.size(); ++i) {
        fillRow(i, query[i], text);
    }
}

template <class Unit>
void ScoreTable::findRanges(std::span<const Unit> query, std::span<const Unit> text) {
    ranges_.resize(query.size());
    std::size_t position = 0;
    for (std::size_t i = 0; i < query.size(); ++i, ++position) {
        while (text[position] != query[i]) {
            ++position;
        }
        ranges_[i].first = position;
    }
    position = text.size();
    for (std::size_t i = query.size(); i-- > 0;) {
        do {
            --position;
        } while (text[position] != query[i]);
        ranges_[i].last = position;
    }
}

template <class Unit>
void ScoreTable::fillRow(std::size_t i, Unit character, ScoredText<Unit> text) {
    Cell gap = {kUnmatched, 0}; // the best of the row above, up to two columns back
    std::size_t next = i == 0 ? 0 : ranges_[i - 1].first;
    const std::size_t aboveEnd = i == 0 ? 0 : ranges_[i - 1].last + 1;
    for (std::size_t j = ranges_[i].first; j <= ranges_[i].last; ++j) {
        for (; next + 1 < j && next < aboveEnd; ++next) {
            if (cell(i - 1, next).bonuses > gap.bonuses) {
                gap = cell(i - 1, next);
            }
        }
        if (text.characters[j] != character) {
            cell(i, j) = {kUnmatched, 0};
        } else if (i == 0) {
            cell(i, j) = {text.bonuses[j], static_cast<int>(j)};
        } else {
            cell(i, j) = bestAfter(i, j, gap, text.bonuses[j]);
        }
    }
}

/// Cell (i, j) when its character matches: after the best `gap`, or right after the match before.
ScoreTable::Cell ScoreTable::bestAfter(std::size_t i, std::size_t j, Cell gap, int bonus) {
    Cell best = {kUnmatched, 0};
    if (gap.bonuses > kUnmatched) {
        best = {gap.bonuses + bonus, gap.start};
    }
    const Range above = ranges_[i - 1];
    if (j > above.first && j - 1 <= above.last && cell(i - 1, j - 1).bonuses > kUnmatched) {
        const Cell before = cell(i - 1, j - 1);
        const int taken = before.bonuses + std::max(bonus, MatchScore::kConsecutiveBonus);
        if (taken > best.bonuses) {
            best = {taken, before.start};
        }
    }
    return best;
}

/// Where the best alignment ends: the earliest of the best.
std::size_t ScoreTable::end(std::size_t row) {
    const auto [first, last] = ranges_[row];
    const auto value = [&](std::size_t j) {
        return cell(row, j).bonuses - static_cast<int>(j) * MatchScore::kSkipped;
    };
    std::size_t best = first;
    for (std::size_t j = first + 1; j <= last; ++j) {
        if (cell(row, j).bonuses > kUnmatched && value(j) > value(best)) {
            best = j;
        }
    }
    return best;
}

/// Where the match before (i, p) lies: the leftmost of the best.
std::size_t ScoreTable::predecessor(std::size_t i, std::size_t p, int bonus) {
    const auto [first, last] = ranges_[i - 1];
    std::size_t best = first;
    int most = kUnmatched;
    for (std::size_t k = first; k <= last && k < p; ++k) {
        const int before = cell(i - 1, k).bonuses;
        const int taken =
            before + (k + 1 == p ? std::max(bonus, MatchScore::kConsecutiveBonus) : bonus);
        if (before > kUnmatched && taken > most) {
            most = taken;
            best = k;
        }
    }
    return best;
}

template double ScoreTable::score(std::span<const std::uint8_t>, ScoredText<std::uint8_t>);
template double ScoreTable::score(std::span<const char32_t>, ScoredText<char32_t>);
template std::vector<int> ScoreTable::positions(std::span<const std::uint8_t>,
                                                ScoredText<std::uint8_t>);
template std::vector<int> ScoreTable::positions(std::span<const char32_t>, ScoredText<char32_t>);

} // namespace pello
