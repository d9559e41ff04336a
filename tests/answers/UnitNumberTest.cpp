#include "answers/UnitNumber.h"

#include "base/DecimalText.h"
#include "base/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string_view>

namespace pello {
namespace {

using testing::Eq;
using testing::Optional;

TEST(UnitNumberTest, ReadsBothConventionsOfSeparators) {
    // As typed, where a dot stands before decimals, and where a comma does.
    constexpr std::string_view kCases =
        "1234 1234 1234;1,234.5 1234.5 1234.5;1.234,5 1234.5 1234.5;1,500 1500 1.5;1.500 1.5 1500;"
        "1,5 1.5 1.5;1.5 1.5 1.5;1,5000 1.5 1.5;1,234,567 1234567 1234.567;"
        "1.234.567 1234.567 1234567;1,234,56 1234.56 1234.56;5.5.5 55.5 55.5;"
        "1_000.5 1000.5 1000.5;-1,500 -1500 -1.5;.5 0.5 0.5;-,5 -0.5 -0.5;.500 0.5 500;5. 5 5;"
        "007 7 7;0.1 0.1 0.1";
    for (const std::string_view each : text::split(kCases, ';')) {
        const auto words = text::words(each);
        EXPECT_EQ(UnitNumber::parse(words[0], "."), parseDecimal(words[1])) << each;
        EXPECT_EQ(UnitNumber::parse(words[0], ","), parseDecimal(words[2])) << each;
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
