#include "search/FuzzyMatcher.h"

#include "base/Text.h"
#include "search/MatchScore.h"
#include "support/MarkedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using pello::testing::marked;
using pello::testing::MarkedText;

// The constants by short names, so that an expected score reads as what was earned and paid.
constexpr double kStart = MatchScore::kStartBonus + MatchScore::kMatch;
constexpr double kWord = MatchScore::kSeparatorBonus + MatchScore::kMatch;
constexpr double kHump = MatchScore::kHumpBonus + MatchScore::kMatch;
constexpr double kNumber = MatchScore::kNumberBonus + MatchScore::kMatch;
constexpr double kNext = MatchScore::kConsecutiveBonus + MatchScore::kMatch;
constexpr double kPlain = MatchScore::kMatch;
constexpr double kSkip = MatchScore::kSkipped;
constexpr double kSurplus = MatchScore::kSurplus;
constexpr double kFirst = MatchScore::kFirstPosition;

std::optional<FuzzyMatcher::Match> matched(const std::string& query, const std::string& text) {
    return FuzzyMatcher::match(text::characters(query), text);
}

/// The query finds the marked text, exactly so marked.
MATCHER_P(matches, text, "") {
    const MarkedText expected(text);
    const auto match = matched(arg, expected.plain);
    *result_listener << (match ? marked(expected.plain, match->positions) : "no match");
    return match && match->positions == expected.positions;
}

/// As `matches`, with this very score.
MATCHER_P2(scoresIn, text, score, "") {
    const MarkedText expected(text);
    const auto match = matched(arg, expected.plain);
    if (!match) {
        *result_listener << "no match";
        return false;
    }
    *result_listener << marked(expected.plain, match->positions) << " " << match->score;
    return match->score == score && match->positions == expected.positions;
}

MATCHER_P(matchesNot, text, "") {
    return !matched(arg, text).has_value();
}

TEST(FuzzyMatcherTest, EarnsBonusesAndPaysForGaps) {
    EXPECT_THAT("ab", scoresIn("[ab]", kStart + kNext));
    EXPECT_THAT("x2", scoresIn("[x]y[2]", kStart - kSkip + kNumber - kSurplus));
    EXPECT_THAT("ac", scoresIn("[a]b[c]", kStart - kSkip + kPlain - kSurplus));
}

TEST(FuzzyMatcherTest, ScoresAreTheseToTheBit) {
    EXPECT_THAT("ab", scoresIn("[a]-[b]", 52.65));
    EXPECT_THAT("fb", scoresIn("[F]oo[B]ar", 48.6));
    EXPECT_THAT("a", scoresIn("b[a]nana", 12.75));
}

TEST(FuzzyMatcherTest, AWordBeginsAfterEachSeparator) {
    for (const char separator : std::string(" -_./\\()[]:,+&'")) {
        EXPECT_EQ(matched("b", std::string("a") + separator + "b")->score,
                  kWord - 2 * kSkip - kSurplus * 2 - kFirst * 2)
            << separator;
    }
    for (const char other : std::string("!\"#$%*;<=>?@^`{|}~")) {
        EXPECT_EQ(matched("b", std::string("a") + other + "b")->score,
                  kPlain - 2 * kSkip - kSurplus * 2 - kFirst * 2)
            << other;
    }
}

TEST(FuzzyMatcherTest, OfEqualAlignmentsTheLeftmostIsMarked) {
    EXPECT_THAT("a", matches("x[a]a"));
    EXPECT_THAT("ab", matches("x[ab]ab"));
    EXPECT_THAT("a", scoresIn("x[a]xxxxxxxx-a", kPlain - kSkip - kSurplus * 11 - kFirst))
        << "the word start is ten further away, which is what it earns more";
    EXPECT_THAT("ab", scoresIn("x[A]a[b]", kHump - 2 * kSkip + kPlain - kSurplus * 2 - kFirst))
        << "the hump earns as much as the run";
}

TEST(FuzzyMatcherTest, WhatIsNotContainedInOrderDoesNotMatch) {
    EXPECT_THAT("ba", matchesNot("ab"));
    EXPECT_THAT("aa", matchesNot("a"));
    EXPECT_THAT("a", matchesNot(""));
    EXPECT_THAT("A", matchesNot("A")) << "queries come in lower case";
    EXPECT_EQ(matched("", "anything"), (FuzzyMatcher::Match{.score = 0, .positions = {}}));
    EXPECT_EQ(matched("", ""), FuzzyMatcher::Match{});
}

TEST(FuzzyMatcherTest, MatchesCharactersNotBytes) {
    EXPECT_THAT("éa", scoresIn("[é]t[a]", kStart - kSkip + kPlain - kSurplus));
    EXPECT_THAT("é", matches("caf[e\u0301]")) << "canonically equivalent";
    EXPECT_THAT("e", matchesNot("e\u0301"));
    EXPECT_THAT("世", matches("你好[世]界"));
    EXPECT_THAT("🇩🇪", matches("a[🇩🇪]"));
    EXPECT_THAT("ςα", matchesNot("ΑΣΑ")) << "no final sigma inside a word";
    EXPECT_THAT("k", matches("[\u212A]")) << "the Kelvin sign in lower case";
    EXPECT_THAT("\n", matchesNot("a\r\nb")) << "a line end is one character";
}

TEST(FuzzyMatcherTest, LowerCaseMayHaveMoreCharactersThanTheText) {
    // The circled M joins with what follows, its small form does not: the last of the three
    // characters in lower case has no bonus.
    EXPECT_EQ(matched("a", "\u24C2\u200D😀a")->positions, std::vector<int>{2});
    EXPECT_EQ(matched("a", "\u24C2\u200D😀a")->score,
              kPlain - 2 * kSkip - kSurplus * 2 - kFirst * 2);
}

} // namespace
} // namespace pello
