#include "platform/bundles/PropertyList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace pello {
namespace {

using testing::Eq;
using testing::Optional;

std::optional<PropertyValue> reread(const PropertyValue& value) {
    const auto bytes = serializePropertyList(value);
    return bytes ? parsePropertyList(*bytes) : std::nullopt;
}

std::optional<PropertyValue> xml(std::string_view content) {
    return parsePropertyList("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                             "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                             "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                             "<plist version=\"1.0\">" +
                             std::string(content) + "</plist>\n");
}

std::string times(std::string_view piece, std::size_t count) {
    std::string text;
    while (count-- > 0) {
        text += piece;
    }
    return text;
}

TEST(PropertyListTest, EveryKindComesBackEqual) {
    const std::vector<PropertyValue> values = {
        "",
        "plain",
        "Ünïcode 👩‍👩‍👧 \u200E",
        "line\r\nbreak\ttab  ",
        "control \x01\x1b\x7f",
        "<&>]]>\"'",
        0,
        -1,
        std::numeric_limits<std::int64_t>::min(),
        std::numeric_limits<std::int64_t>::max(),
        0.1,
        1.0 / 3,
        -1e300,
        5e-324,
        5.0,
        std::numeric_limits<double>::infinity(),
        true,
        false,
        PropertyData{},
        PropertyData{0, 255, 10, 13},
        PropertyArray{},
        PropertyArray{1, "1", 1.0, true, PropertyArray{PropertyDictionary{}}},
        PropertyDictionary{{"", 1}, {"k\x01 <ü", PropertyDictionary{{"x", PropertyArray{2}}}}},
        Date{816948000.125},
        Date{-5.25},
        Date{0},
    };
    for (const PropertyValue& value : values) {
        EXPECT_THAT(reread(value), Optional(Eq(value)));
        EXPECT_THAT(reread(PropertyArray{value, value}), Optional(Eq(PropertyArray{value, value})));
    }
    const auto zero = reread(-0.0);
    ASSERT_TRUE(zero && zero->as<double>());
    EXPECT_TRUE(std::signbit(*zero->as<double>()));
}

TEST(PropertyListTest, RandomRealsAndDatesAreStable) {
    std::mt19937_64 random(7);
    for (int round = 0; round < 500; ++round) {
        const auto bits = random();
        double real = 0;
        std::memcpy(&real, &bits, sizeof real);
        if (!std::isnan(real)) {
            EXPECT_THAT(reread(real), Optional(Eq(PropertyValue(real))));
        }
        const auto moment =
            std::uniform_real_distribution(-2'147'000'000.0, 2'147'000'000.0)(random);
        const auto once = reread(Date{moment});
        ASSERT_TRUE(once && once->as<Date>());
        EXPECT_NEAR(once->as<Date>()->sinceReference, moment, 0.0006);
        EXPECT_THAT(reread(*once), Optional(Eq(*once))) << moment;
    }
}

TEST(PropertyListTest, WhatCannotBeStoredIsMadeSafe) {
    using namespace std::string_literals;
    EXPECT_THAT(reread("a\0b"s), Optional(Eq(PropertyValue("a\uFFFDb"))));
    EXPECT_THAT(reread("\xFFz"s), Optional(Eq(PropertyValue("\uFFFDz"))));
    EXPECT_THAT(reread(PropertyDictionary{{"\xC3(", 1}}),
                Optional(Eq(PropertyValue(PropertyDictionary{{"\uFFFD(", 1}}))));
    const auto far = reread(Date{1e12});
    ASSERT_TRUE(far && far->as<Date>());
    EXPECT_GT(far->as<Date>()->sinceReference, 2.1e9);
    EXPECT_THAT(reread(Date{std::nan("")}), Optional(Eq(PropertyValue(Date{0}))));
}

TEST(PropertyListTest, ReadsXml) {
    EXPECT_THAT(xml("<dict><key>CFBundleName</key><string>A &amp; &#x42;</string>"
                    "<key>n</key><integer>-3</integer><key>r</key><real>1.5</real>"
                    "<key>t</key><true/><key>d</key><data>AAEC</data>"
                    "<key>when</key><date>2001-01-01T00:01:00Z</date>"
                    "<key>list</key><array><false/><string><![CDATA[</array>]]></string>"
                    "<!-- </array> --><dict/></array></dict>"),
                Optional(Eq(PropertyValue(PropertyDictionary{
                    {"CFBundleName", "A & B"},
                    {"n", -3},
                    {"r", 1.5},
                    {"t", true},
                    {"d", PropertyData{0, 1, 2}},
                    {"when", Date{60}},
                    {"list", PropertyArray{false, "</array>", PropertyDictionary{}}}}))));
}

TEST(PropertyListTest, IntegersBeyondTheSignedRangeReadAsReals) {
    EXPECT_THAT(xml("<integer>18446744073709551615</integer>"),
                Optional(Eq(PropertyValue(18446744073709551615.0))));
    EXPECT_THAT(xml("<integer>9223372036854775807</integer>"),
                Optional(Eq(PropertyValue(std::numeric_limits<std::int64_t>::max()))));
    EXPECT_THAT(xml("<integer>-9223372036854775808</integer>"),
                Optional(Eq(PropertyValue(std::numeric_limits<std::int64_t>::min()))));
}

TEST(PropertyListTest, DamagedListsReadAsNothing) {
    EXPECT_EQ(parsePropertyList(""), std::nullopt);
    EXPECT_EQ(parsePropertyList("{ \"a\": 1 }"), std::nullopt);
    EXPECT_EQ(xml("<dict><key>a</key><string>b</string>"), std::nullopt);
    const auto whole = serializePropertyList(
        PropertyDictionary{{"a", PropertyArray{"text", 1, 2.5}}, {"b", PropertyData(300, 7)}});
    ASSERT_TRUE(whole);
    for (std::size_t length = 0; length < whole->size(); ++length) {
        EXPECT_EQ(parsePropertyList(whole->substr(0, length)), std::nullopt) << length;
    }
}

TEST(PropertyListTest, NestingIsBounded) {
    const auto nested = [](std::size_t depth) {
        return xml(times("<array>", depth) + times("</array>", depth));
    };
    EXPECT_TRUE(nested(kPropertyListDepth));
    EXPECT_FALSE(nested(kPropertyListDepth + 1));
    EXPECT_FALSE(nested(200'000));
    EXPECT_FALSE(xml(times("<array><!-- </array> -->", 200'000)));
    EXPECT_FALSE(xml(times("<dict><key>a</key>", 200'000)));

    PropertyValue deep = PropertyArray{};
    for (std::size_t i = 1; i < kPropertyListDepth; ++i) {
        deep = PropertyArray{std::move(deep)};
    }
    EXPECT_THAT(reread(deep), Optional(Eq(deep)));
    EXPECT_EQ(serializePropertyList(PropertyArray{deep}), std::nullopt);
}

/// A binary list of arrays, each holding the objects whose numbers are given.
std::string binaryArrays(const std::vector<std::vector<std::uint8_t>>& arrays) {
    std::string list = "bplist00";
    std::string offsets;
    for (const auto& references : arrays) {
        offsets += static_cast<char>(list.size());
        list += static_cast<char>(0xA0U | references.size());
        list.append(references.begin(), references.end());
    }
    const auto table = static_cast<char>(list.size());
    list += offsets + std::string(6, '\0') + "\x01\x01" + std::string(7, '\0');
    list += static_cast<char>(arrays.size());
    return list + std::string(8, '\0') + std::string(7, '\0') + table;
}

TEST(PropertyListTest, SharedObjectsCannotGrowWithoutBound) {
    EXPECT_THAT(parsePropertyList(binaryArrays({{1, 1}, {}})),
                Optional(Eq(PropertyValue(PropertyArray{PropertyArray{}, PropertyArray{}}))));
    EXPECT_EQ(parsePropertyList(binaryArrays({{0}})), std::nullopt) << "inside itself";
    EXPECT_EQ(parsePropertyList(binaryArrays({{1}, {0}})), std::nullopt);
    EXPECT_EQ(parsePropertyList(binaryArrays({{7}})), std::nullopt) << "no such object";
    std::vector<std::vector<std::uint8_t>> doubling;
    for (std::uint8_t i = 1; i < 40; ++i) {
        doubling.push_back({i, i});
    }
    doubling.emplace_back();
    EXPECT_EQ(parsePropertyList(binaryArrays(doubling)), std::nullopt) << "2^39 arrays";
}

TEST(PropertyListTest, AKeyWithANulIsDamage) {
    auto list = *serializePropertyList(PropertyDictionary{{"keyABC", "textABC"}});
    list.replace(list.find("textABC") + 4, 1, 1, '\0');
    EXPECT_TRUE(parsePropertyList(list)) << "in a text it is none";
    list.replace(list.find("keyABC") + 3, 1, 1, '\0');
    EXPECT_EQ(parsePropertyList(list), std::nullopt);
    auto wide = *serializePropertyList(PropertyDictionary{{"\u0100\u0200", 1}});
    EXPECT_TRUE(parsePropertyList(wide));
    wide.replace(wide.find('\x02', 8), 1, 1, '\0');
    EXPECT_EQ(parsePropertyList(wide), std::nullopt);
}

} // namespace
} // namespace pello
