// Each of the tests that a text has to pass before its alignment is computed, against the plain
// form of what it decides.

#include "search/EarliestFit.h"
#include "search/FuzzyMatcher.h"
#include "search/PositionMask.h"
#include "search/PresenceMask.h"
#include "search/ScoreBound.h"
#include "search/TextPreparer.h"
#include "support/RandomText.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace pello {
namespace {

using testing::RandomText;

constexpr int kRounds = 20000;

/// A text prepared and padded as a table keeps it, and a query for it.
struct Sample {
    Sample(std::string_view text, std::string_view typed) {
        CharacterCodes codes;
        prepareText(text, codes, prepared);
        length = prepared.bytes.size();
        prepared.bytes.resize(length + PositionMask::kMostPositions, 'a');
        prepared.bonuses.resize(prepared.bytes.size(), 10);
        for (const char byte : typed) {
            query.emplace_back(1, byte);
            patterns.emplace_back(static_cast<std::uint8_t>(byte));
        }
    }

    /// One more than the position of the query's last character when each is as early as
    /// possible; nothing when the text does not contain the query.
    [[nodiscard]] std::optional<std::size_t> earliestEnd() const {
        std::size_t found = 0;
        for (std::size_t i = 0; i < length; ++i) {
            found += prepared.bytes[i] == patterns[found].bytes[0] ? 1U : 0U;
            if (found == patterns.size()) {
                return i + 1;
            }
        }
        return std::nullopt;
    }

    PreparedText prepared;
    std::size_t length = 0;
    std::vector<std::string> query;
    std::vector<PositionMask::Pattern> patterns;
};

TEST(FilterTest, PositionMasksMarkWhereAByteStands) {
    RandomText random(1);
    for (int round = 0; round < kRounds; ++round) {
        std::string block = random.text(64, "ab\x01\x7F\x80\x81\xFF");
        block.resize(PositionMask::kMostPositions, '\0');
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(block.data());
        const auto wanted =
            static_cast<std::uint8_t>("ab\x01\x7F\x80\x81\xFF\x7E"[random.below(8)]);
        const PositionMask::Pattern pattern(wanted);
        std::uint64_t expected = 0;
        std::uint64_t byWords = 0;
        for (std::size_t i = 0; i < block.size(); ++i) {
            expected |= std::uint64_t{bytes[i] == wanted} << i;
        }
        for (std::size_t word = 0; word < block.size(); word += 8) {
            byWords |= PositionMask::placesInWord(pattern, bytes + word) << word;
        }
        ASSERT_EQ(PositionMask::places<4>(pattern, bytes), expected);
        ASSERT_EQ(byWords, expected);
    }
    EXPECT_EQ(PositionMask::firstBits(0), 0U);
    EXPECT_EQ(PositionMask::firstBits(64), ~std::uint64_t{0});
    EXPECT_EQ(PositionMask::aboveLowest(std::uint64_t{1} << 63), 0U);
    EXPECT_EQ(PositionMask::aboveLowest(0b0110), ~std::uint64_t{0b0011});
    EXPECT_EQ(PositionMask::belowHighest(0b0110), 0b0011U);
    EXPECT_EQ(PositionMask::belowHighest(1), 0U);
}

TEST(FilterTest, PresenceMasksNeverRejectATextThatContainsTheQuery) {
    RandomText random(2);
    for (int round = 0; round < kRounds; ++round) {
        const Sample sample(random.text(30), random.query(4));
        const auto text = PresenceMask::of(std::span(sample.prepared.bytes).first(sample.length));
        std::uint64_t query = 0;
        for (const auto& pattern : sample.patterns) {
            query |= PresenceMask::of(pattern.bytes[0]);
        }
        if (sample.earliestEnd()) {
            ASSERT_TRUE(PresenceMask::mayContain(text, query));
        }
    }
    for (unsigned letter = 'a'; letter < 'z'; ++letter) {
        EXPECT_NE(PresenceMask::of(static_cast<std::uint8_t>(letter)),
                  PresenceMask::of(static_cast<std::uint8_t>(letter + 1)));
    }
}

TEST(FilterTest, TheTextsThatMayContainTheQueryAreCollected) {
    RandomText random(3);
    for (int round = 0; round < kRounds; ++round) {
        std::vector<std::uint64_t> masks(random.below(20));
        for (auto& mask : masks) {
            mask = random.below(16);
        }
        const std::uint64_t query = random.below(16);
        const auto end = static_cast<std::uint32_t>(masks.size());
        const auto begin = static_cast<std::uint32_t>(random.below(masks.size() + 1));
        std::vector<std::uint32_t> expected;
        for (std::uint32_t i = begin; i < end; ++i) {
            if ((masks[i] & query) == query) {
                expected.push_back(i);
            }
        }
        std::vector<std::uint32_t> found(end - begin);
        found.resize(PresenceMask::select(masks.data(), begin, end, query, found.data()));
        ASSERT_EQ(found, expected);
    }
}

TEST(FilterTest, TheEarliestFitIsFoundWithinReach) {
    RandomText random(4);
    for (int round = 0; round < kRounds; ++round) {
        const Sample sample(random.text(round % 4 == 0 ? 150 : 66), random.query(6));
        const auto end = sample.earliestEnd();
        for (const std::size_t reach : {sample.length, random.below(sample.length + 1)}) {
            const bool fits = end && *end <= reach;
            const std::uint8_t* bytes = sample.prepared.bytes.data();
            ASSERT_EQ(EarliestFit::exists(sample.patterns, bytes, reach), fits);
            std::vector<std::uint32_t> slots = {7};
            const EarliestFit::Row texts = {bytes, 7, static_cast<std::uint32_t>(sample.length)};
            ASSERT_EQ(EarliestFit::select(sample.patterns, texts, reach, slots), fits ? 1U : 0U);
        }
    }
}

TEST(FilterTest, NoBoundIsBelowTheScore) {
    RandomText random(5);
    std::size_t tight = 0;
    std::size_t count = 0;
    for (int round = 0; round < kRounds; ++round) {
        const std::string text = random.text(round % 2 == 0 ? 64 : 12);
        const Sample sample(text, random.query(5));
        const auto end = sample.earliestEnd();
        if (!end) {
            continue;
        }
        const double score = FuzzyMatcher::match(sample.query, text)->score;
        const ScoreBound bound(sample.query);
        std::vector<std::uint64_t> places(sample.query.size());
        EarliestFit::findPlaces(sample.patterns,
                                std::span(sample.prepared.bytes).first(sample.length), places);
        const double byBonuses =
            bound.byBonuses(places, std::span(sample.prepared.bonuses).first(sample.length));
        ASSERT_GE(bound.byLength(sample.length), score - 1e-9) << text;
        ASSERT_GE(byBonuses, score - 1e-9) << text;
        ASSERT_GE(bound.reach(sample.length, score - 1e-9), *end) << text;
        ++count;
        tight += byBonuses < score + 1 ? 1U : 0U;
    }
    EXPECT_GT(tight * 2, count) << "the bound by bonuses should mostly be the score itself";
}

} // namespace
} // namespace pello
