#include "base/Collation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace pello {
namespace {

int sign(int value) {
    return std::clamp(value, -1, 1);
}

TEST(CollationTest, IgnoresCaseButNotAccents) {
    const Collation english("en_US");
    EXPECT_EQ(english.compare("Safari", "sAFARI"), 0);
    EXPECT_LT(english.compare("apple", "Banana"), 0);
    EXPECT_LT(english.compare("resume", "résumé"), 0);
    EXPECT_GT(english.compare("Zoom", "Ärger"), 0) << "an accented letter sorts with its base";
}

TEST(CollationTest, FollowsTheLocale) {
    EXPECT_LT(Collation("de_DE").compare("ä", "z"), 0);
    EXPECT_GT(Collation("sv_SE").compare("ä", "z"), 0);
}

TEST(CollationTest, TheLocaleCIsOrderedForReaders) {
    EXPECT_LT(Collation("en_US_POSIX").compare("apple", "Banana"), 0);
    EXPECT_LT(Collation("nonsense").compare("apple", "Banana"), 0);
}

TEST(CollationTest, SortKeysOrderAsComparisonDoes) {
    const Collation german("de_DE");
    const std::vector<std::string> names = {"",      "a",   "A",   "ab",      "Ab c", "ä",
                                            "Zebra", "éa",  "ß",   "ss",      "漢字", "10",
                                            "9",     "a-b", "a b", "\u200Ea", "İ",    "🎉"};
    for (const auto& left : names) {
        for (const auto& right : names) {
            EXPECT_EQ(sign(german.compare(left, right)),
                      sign(german.sortKey(left).compare(german.sortKey(right))))
                << left << " and " << right;
        }
    }
}

/// Sort keys never take the short cut for ASCII, so they tell whether it is right.
TEST(CollationTest, AsciiTextsAreOrderedByTheLocaleToo) {
    std::mt19937 generator(1);
    const auto text = [&] {
        std::string result;
        for (std::size_t count = generator() % 5; count > 0; --count) {
            const std::size_t place = generator() % 95;
            result += generator() % 3 == 0 ? "achlyz"[place % 6] : static_cast<char>(' ' + place);
        }
        return result;
    };
    for (const char* locale :
         {"en_US", "de_DE", "cs_CZ", "da_DK", "hu_HU", "sv_SE", "lt_LT", "th_TH", "ja_JP",
          "es@collation=traditional", "en-u-kn", "en-u-ka-shifted", "nonsense"}) {
        const Collation collation(locale);
        for (int i = 0; i < 2000; ++i) {
            const std::string left = text();
            const std::string right = i % 2 == 0 ? text() : left + text();
            ASSERT_EQ(sign(collation.compare(left, right)),
                      sign(collation.sortKey(left).compare(collation.sortKey(right))))
                << locale << ": " << left << " and " << right;
        }
    }
    EXPECT_LT(Collation("cs_CZ").compare("cz", "ch"), 0) << "ch is a letter after c";
    EXPECT_LT(Collation("en-u-kn").compare("a9", "a10"), 0) << "digits read as numbers";
}

} // namespace
} // namespace pello
