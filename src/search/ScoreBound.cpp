// Why nothing that belongs in the results is left out.
//
// An alignment of n characters scores 16n + A - G - 0.35(m-n) - 0.5s: A the bonuses taken, G the
// text characters skipped before the last match, s the first position, m the text's length
// (MatchScore, ScoreTable). Let e be the last position. It lies no further left than the end f of
// the earliest fit, so
//
//     G = e-(n-1) >= f-(n-1).                                                          (1)
//
// byLength. The first character takes at most 12. Each later one takes, after a gap, at most 10
// and pays at least 1 for the gap: net 9. Right after the previous match it takes max(b, 8), and
// b is 10 only if the previous match is a separator: net 8, or 10 where the query itself has a
// separator before it. So A - G <= 12 + the sum of 9, or 10 after a separator.
//
// reach. Without setting off gaps, A <= 12 + 10(n-1). With (1), a score of `needed` takes
//
//     f <= 16n + 12 + 10(n-1) - 0.35(m-n) - needed + (n-1),
//
// which says how many leading characters must contain the query.
//
// byBonuses. Character i lies on one of the positions F[i] between its first and last fit. Its
// bonus is at most the best on F[i], or 8 if some position of F[i] follows one of F[i-1]. Summed
// up and with (1) that bounds the score. Net of its own gap it brings at most
//
//     10  if a position of F[i] after one of F[i-1] has bonus 10,
//      9  if another position has bonus 10,          8  if a position follows one of F[i-1],
//      7  if a position has bonus 8,                 5  if one has bonus 6,        else -1,
//
// and the first one b - 1.5p for the earliest position p of each bonus b. That sum is the second
// bound, and the smaller of the two is the answer.

#include "search/ScoreBound.h"

#include "search/BoundaryBonuses.h"
#include "search/MatchScore.h"
#include "search/PositionMask.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace pello {
namespace {

using namespace MatchScore;

const PositionMask::Pattern kSeparator(kSeparatorBonus);
const PositionMask::Pattern kHump(kHumpBonus);
const PositionMask::Pattern kNumber(kNumberBonus);

/// The positions of each bonus that is not at the start.
struct BonusPlanes {
    std::uint64_t separator = 0;
    std::uint64_t hump = 0;
    std::uint64_t number = 0;

    explicit BonusPlanes(std::span<const std::uint8_t> bonuses) {
        const unsigned blocks = PositionMask::blocks(bonuses.size());
        for (unsigned i = 0; i < blocks; ++i) {
            const std::size_t at = i * PositionMask::kBlock;
            const std::uint8_t* block = bonuses.data() + at;
            separator |= PositionMask::placesInBlock(kSeparator, block) << at;
            hump |= PositionMask::placesInBlock(kHump, block) << at;
            number |= PositionMask::placesInBlock(kNumber, block) << at;
        }
    }

    /// The best bonus on one of the positions.
    [[nodiscard]] int best(std::uint64_t positions) const {
        if ((positions & separator) != 0) {
            return kSeparatorBonus;
        }
        if ((positions & hump) != 0) {
            return kHumpBonus;
        }
        return (positions & number) != 0 ? kNumberBonus : 0;
    }
};

/// What the first character brings at most on one of the positions, its gap and distance paid.
double firstNet(std::uint64_t positions, const BonusPlanes& planes) {
    if ((positions & 1) != 0) {
        return kStartBonus;
    }
    constexpr double kPerPosition = kSkipped + kFirstPosition;
    const auto value = [&](std::uint64_t where, int bonus) {
        return where == 0 ? -HUGE_VAL : bonus - kPerPosition * std::countr_zero(where);
    };
    return std::max({value(positions & planes.separator, kSeparatorBonus),
                     value(positions & planes.hump, kHumpBonus),
                     value(positions & planes.number, kNumberBonus), value(positions, 0)});
}

} // namespace

ScoreBound::ScoreBound(std::span<const std::string> query) : count_(query.size()) {
    netCeiling_ = grossCeiling_ = kMatch + kStartBonus;
    for (std::size_t i = 1; i < query.size(); ++i) {
        netCeiling_ += kMatch + kSeparatorBonus - (isSeparator(query[i - 1]) ? 0 : kSkipped);
        grossCeiling_ += kMatch + kSeparatorBonus;
    }
}

double ScoreBound::byLength(std::size_t length) const {
    return netCeiling_ - kSurplus * static_cast<double>(length - count_);
}

std::size_t ScoreBound::reach(std::size_t length, double needed) const {
    const double spare = grossCeiling_ - kSurplus * static_cast<double>(length - count_) - needed;
    if (spare >= static_cast<double>(length - count_)) {
        return length;
    }
    return spare < 0 ? 0 : count_ + static_cast<std::size_t>(spare);
}

double ScoreBound::byBonuses(std::span<std::uint64_t> fits,
                             std::span<const std::uint8_t> bonuses) const {
    const BonusPlanes planes(bonuses);
    const int end = std::countr_zero(fits.back());
    std::uint64_t before = ~std::uint64_t{0};
    for (std::size_t i = fits.size(); i-- > 0;) {
        fits[i] &= before;
        before = PositionMask::belowHighest(fits[i]);
    }
    const int first = std::countr_zero(fits[0]);
    double net = firstNet(fits[0], planes);
    int gross = first == 0 ? kStartBonus : planes.best(fits[0]);
    for (std::size_t i = 1; i < fits.size(); ++i) {
        const std::uint64_t next = fits[i] & (fits[i - 1] << 1);
        const int best = planes.best(fits[i]);
        const bool isNext = next != 0;
        gross += isNext ? std::max(best, kConsecutiveBonus) : best;
        const int inRun = (next & planes.separator) != 0 ? kSeparatorBonus : kConsecutiveBonus;
        net += std::max(best - kSkipped, isNext ? inRun : -kSkipped);
    }
    const int skipped = (end - static_cast<int>(fits.size()) + 1) * kSkipped;
    const double surplus = kSurplus * static_cast<double>(bonuses.size() - count_);
    const double byGaps = gross - skipped - kFirstPosition * first;
    return static_cast<double>(kMatch * count_) + std::min(net, byGaps) - surplus;
}

} // namespace pello
