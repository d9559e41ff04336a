#include "base/Collation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pello {
namespace {

int sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(CollationTest, IgnoresCaseButNotAccents) {
    const Collation english("en_US");
    EXPECT_EQ(english.compare("Safari", "sAFARI"), 0);
    EXPECT_LT(english.compare("apple", "Banana"), 0);
    EXPECT_LT(english.compare("resume", "résumé"), 0);
    EXPECT_LT(english.compare("Zoom", "Ärger") * -1, 0) << "an accented letter sorts with its base";
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

} // namespace
} // namespace pello
