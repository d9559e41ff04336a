#include "answers/UnitNumber.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace pello {
namespace {

using testing::Eq;
using testing::Optional;

TEST(UnitNumberTest, ReadsBothConventionsOfSeparators) {
    struct Case {
        const char* text;
        double withDot;
        double withComma;
    };
    for (const Case& each : std::vector<Case>{{"1234", 1234, 1234},
                                              {"1,234.5", 1234.5, 1234.5},
                                              {"1.234,5", 1234.5, 1234.5},
                                              {"1,500", 1500, 1.5},
                                              {"1.500", 1.5, 1500},
                                              {"1,5", 1.5, 1.5},
                                              {"1.5", 1.5, 1.5},
                                              {"1,5000", 1.5, 1.5},
                                              {"1,234,567", 1234567, 1234.567},
                                              {"1.234.567", 1234.567, 1234567},
                                              {"1,234,56", 1234.56, 1234.56},
                                              {"5.5.5", 55.5, 55.5},
                                              {"1_000.5", 1000.5, 1000.5},
                                              {"-1,500", -1500, -1.5},
                                              {".5", 0.5, 0.5},
                                              {"-,5", -0.5, -0.5},
                                              {".500", 0.5, 500},
                                              {"5.", 5, 5},
                                              {"007", 7, 7},
                                              {"0.1", 0.1, 0.1}}) {
        EXPECT_THAT(UnitNumber::parse(each.text, "."), Optional(each.withDot)) << each.text;
        EXPECT_THAT(UnitNumber::parse(each.text, ","), Optional(each.withComma)) << each.text;
    }
    EXPECT_THAT(UnitNumber::parse("1,500", "٫"), Optional(1500.0));
    EXPECT_THAT(UnitNumber::parse("1.500", "٫"), Optional(1500.0));
    EXPECT_THAT(UnitNumber::parse("1.500", ""), Optional(1.5)); // without a locale's data
    for (const char* text : {"", "-", ".", ",", "_", "-_."}) {
        EXPECT_THAT(UnitNumber::parse(text, "."), Eq(std::nullopt)) << text;
    }
    // Every digit counts: these lie on either side of the middle between two doubles.
    EXPECT_THAT(UnitNumber::parse("9007199254740993.0000000000000000000000001", "."),
                Optional(9007199254740994.0));
    EXPECT_THAT(UnitNumber::parse("9007199254740992.9999999999999999999999999", "."),
                Optional(9007199254740992.0));
}

} // namespace
} // namespace pello
