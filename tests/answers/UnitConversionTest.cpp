#include "answers/UnitConversion.h"

#include "base/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace pello {
namespace {

using testing::DoubleNear;
using testing::HasSubstr;

const UnitConversion& conversion(const std::string& locale) {
    static std::map<std::string, UnitConversion> made;
    return made.try_emplace(locale, locale).first->second;
}

/// "title | subtitle" of the answer, with plain spaces only; "-" without an answer.
std::string answer(std::string_view query, const std::string& locale = "en_US") {
    const auto result = conversion(locale).convert(query);
    if (!result) {
        return "-";
    }
    EXPECT_EQ(result->kind, ConversionResult::Kind::unit);
    const std::string both = result->title + " | " + result->subtitle;
    std::string plain;
    for (const std::string_view word : text::words(both)) {
        plain.append(plain.empty() ? "" : " ").append(word);
    }
    return plain;
}

std::string title(std::string_view query, const std::string& locale = "en_US") {
    const std::string both = answer(query, locale);
    return both.substr(0, both.find(" |"));
}

/// The number that a title begins with, as written.
std::string numberOf(const std::string& title) {
    return title.substr(0, title.find_first_not_of("-0123456789.,"));
}

double valueOf(std::string number) {
    number.erase(std::remove(number.begin(), number.end(), ','), number.end());
    return std::strtod(number.c_str(), nullptr);
}

std::string firstName(const Unit& unit) {
    return std::string(text::split(unit.names, '|').front());
}

TEST(UnitConversionTest, SaysWhatIsConvertedIntoWhat) {
    EXPECT_EQ(answer("5 km"), "3.10686 mi | 5 kilometers in miles");
    EXPECT_EQ(answer("5km"), "3.10686 mi | 5 kilometers in miles");
    EXPECT_EQ(answer("5 km to m"), "5,000 m | 5 kilometers in meters");
    EXPECT_EQ(answer("212 f to c"), "100°C | 212 degrees Fahrenheit in degrees Celsius");
    EXPECT_EQ(answer("300 k"), "26.85°C | 300 kelvins in degrees Celsius");
    EXPECT_EQ(answer("5'"), "1.524 m | 5 feet in meters");
    EXPECT_EQ(answer("10 \""), "25.4 cm | 10 inches in centimeters");
    EXPECT_EQ(answer("1 b"), "8 bit | 1 byte in bits");
    EXPECT_EQ(answer("0 km"), "0 mi | 0 kilometers in miles");
}

TEST(UnitConversionTest, AWordOfTheConnectorsMayBeAUnit) {
    EXPECT_EQ(title("10 in"), "25.4 cm");
    EXPECT_EQ(title("5 km in"), "196,850 in");
    EXPECT_EQ(title("5 km in in"), "196,850 in");
    EXPECT_EQ(title("5 in in cm"), "12.7 cm");
    EXPECT_EQ(title("5 in cm"), "12.7 cm");
    for (const char* connector : {"in", "to", "as", "into", "=", "->", "→"}) {
        EXPECT_EQ(title("2 cubic feet " + std::string(connector) + " fl oz"), "1,915.01 fl oz");
    }
    EXPECT_EQ(title("5 km mi"), "3.10686 mi");
    EXPECT_EQ(title("2 cubic  feet\tliters"), "56.6337 L");
    EXPECT_EQ(title("5 nautical miles"), "9.26 km");
    EXPECT_EQ(title("72 ° f"), "22.2222°C");
    EXPECT_EQ(title("72° f ->  ° k"), "-");
    EXPECT_EQ(title("72°f in ° c"), "22.2222°C");
}

TEST(UnitConversionTest, WhatIsNotAQuantityHasNoAnswer) {
    for (const char* query : {"",           "km",          "5",
                              "-",          "- km",        "., km",
                              "5 kg to km", "5 km to",     "5 km to to mi",
                              "to 5 km",    "5eur in usd", "5 km mi ft",
                              "1e5 km",     "0x10 km",     "inf km",
                              "nan km",     "½ km",        "٥ km",
                              "5 + 3 km",   "5\u0301km",   "5 KM",
                              "5 km\u0301", "5 °",         "\xFF",
                              "5 \xFF",     "5km->mi"}) {
        EXPECT_EQ(answer(query), "-") << query;
    }
    EXPECT_EQ(answer(std::string(400, '9') + " km"), "-");
    EXPECT_EQ(answer('1' + std::string(307, '0') + " km"), "-"); // too many meters on the way
    EXPECT_EQ(answer("5 " + std::string(100000, ' ') + std::string(100000, '"')), "-");
}

TEST(UnitConversionTest, UnitsHaveTheSizesThatTheyAreDefinedWith) {
    for (const auto& [query, expected] :
         std::vector<std::pair<std::string, std::string>>{{"1 km in cm", "100,000 cm"},
                                                          {"25.4 mm in in", "1 in"},
                                                          {"1 mi in yd", "1,760 yd"},
                                                          {"1 mi in ft", "5,280 ft"},
                                                          {"1 nmi in m", "1,852 m"},
                                                          {"1 kg in mg", "1,000,000 mg"},
                                                          {"1 t in kg", "1,000 kg"},
                                                          {"1 ton in lb", "2,000 lb"},
                                                          {"1 st in lb", "14 lb"},
                                                          {"1 lb in oz", "16 oz"},
                                                          {"1 oz in g", "28.3495 g"},
                                                          {"1 g in mg", "1,000 mg"},
                                                          {"1 m3 in l", "1,000 L"},
                                                          {"1 ft3 in l", "28.3168 L"},
                                                          {"1 gal in qt", "4 qt"},
                                                          {"1 qt in pt", "2 pt"},
                                                          {"1 pt in fl oz", "16 fl oz"},
                                                          {"1 fl oz in tbsp", "2 tbsp"},
                                                          {"1 tbsp in tsp", "3 tsp"},
                                                          {"1 gal in l", "3.78541 L"},
                                                          {"1 imp gal in dl", "45.4609 dL"},
                                                          {"1 cup in cl", "24 cL"},
                                                          {"1 cl in ml", "10 mL"},
                                                          {"36 km/h in m/s", "10 m/s"},
                                                          {"60 mph in km/h", "96.5606 km/h"},
                                                          {"10 knots in km/h", "18.52 km/h"},
                                                          {"1 km2 in ha", "100 ha"},
                                                          {"1 ha in m2", "10,000 m²"},
                                                          {"1 m2 in cm2", "10,000 cm²"},
                                                          {"1 sq ft in sq in", "144 in²"},
                                                          {"1 sq in in sq cm", "6.4516 cm²"},
                                                          {"1 mi2 in ac", "640 ac"},
                                                          {"1 ac in m2", "4,046.86 m²"},
                                                          {"1 pb in tb", "1,000 TB"},
                                                          {"1 gb in mb", "1,000 MB"},
                                                          {"1 kb in b", "1,000 byte"},
                                                          {"1 pib in tib", "1,024 TiB"},
                                                          {"1 gib in mib", "1,024 MiB"},
                                                          {"1 kib in b", "1,024 byte"},
                                                          {"1 gbit in mbit", "1,000 Mb"},
                                                          {"1 mbit in kbit", "1,000 kb"},
                                                          {"1 kbit in bit", "1,000 bit"},
                                                          {"1 wk in d", "7 days"},
                                                          {"1 d in h", "24 hr"},
                                                          {"1 h in s", "3,600 sec"},
                                                          {"1 min in ms", "60,000 ms"}}) {
        EXPECT_EQ(title(query), expected) << query;
    }
}

TEST(UnitConversionTest, EveryUnitConvertsToEveryOtherOfItsKindAndBack) {
    for (const Unit& from : UnitTable::units()) {
        for (const Unit& to : UnitTable::units()) {
            const std::string there = "1,000 " + firstName(from) + " in " + firstName(to);
            if (from.kind != to.kind) {
                EXPECT_EQ(answer(there), "-") << there;
                continue;
            }
            const std::string number = numberOf(title(there));
            const std::string back = number + ' ' + firstName(to) + " to " + firstName(from);
            EXPECT_THAT(valueOf(numberOf(title(back))), DoubleNear(1000, 0.01))
                << there << ", " << back;
        }
    }
}

TEST(UnitConversionTest, EveryNameMeansOneUnitAndEveryUnitHasACounterpart) {
    std::set<std::string_view> seen;
    for (const Unit& unit : UnitTable::units()) {
        const std::string expected = answer("3 " + firstName(unit));
        EXPECT_EQ(expected,
                  answer("3 " + firstName(unit) + " as " + std::string(unit.counterpart)));
        EXPECT_NE(expected, "-") << firstName(unit);
        for (const std::string_view name : text::split(unit.names, '|')) {
            EXPECT_TRUE(seen.insert(name).second) << name;
            EXPECT_EQ(answer("3 " + std::string(name)), expected) << name;
        }
    }
}

TEST(UnitConversionTest, TemperaturesAreExactWhereScalesMeet) {
    for (const auto& [query, expected] :
         std::vector<std::pair<std::string, std::string>>{{"32 f", "0°C"},
                                                          {"0 c", "32°F"},
                                                          {"-40 c", "-40°F"},
                                                          {"-40 f", "-40°C"},
                                                          {"-459.67 f to k", "0 K"},
                                                          {"-273.15 c to k", "0 K"},
                                                          {"273.15 k", "0°C"},
                                                          {"0 k to f", "-459.67°F"},
                                                          {"-17.8 c", "-0.04°F"},
                                                          {"98.6 f", "37°C"}}) {
        EXPECT_EQ(title(query), expected);
    }
}

TEST(UnitConversionTest, SixDigitsAreShownAndAHalfGoesToTheEvenOne) {
    EXPECT_EQ(title("1 kb"), "0.976562 KiB"); // 0.9765625
    EXPECT_EQ(title("1000.015 km in m"), "1,000,020 m");
    EXPECT_EQ(title("1000005 bit in bit"), "1,000,000 bit");
    EXPECT_EQ(title("1000015 bit in bit"), "1,000,020 bit");
    EXPECT_EQ(title("1 pb in bits"), "8,000,000,000,000,000 bit");
    EXPECT_EQ(title("1 bit in pib"), "0.000000000000000111022 PiB");
    EXPECT_EQ(title("-0 m"), "0 ft");
}

TEST(UnitConversionTest, DaysAndWeeksAreSpeltOut) {
    EXPECT_EQ(answer("1 wk"), "7 days | 1 week in days");
    EXPECT_EQ(answer("1 d"), "24 hr | 1 day in hours");
    EXPECT_EQ(answer("17.5 d in wk"), "2.5 weeks | 17.5 days in weeks");
    EXPECT_EQ(title("7 d in wk"), "1 week");
    EXPECT_EQ(title("-24 h in d"), "-1 days");
    EXPECT_EQ(answer("1.0000001 d in d"), "1 days | 1 days in days");
}

TEST(UnitConversionTest, EveryLocaleHasItsOwnTexts) {
    EXPECT_EQ(answer("5 km", "de_DE"), "3,10686 mi | 5 Kilometer in Meilen");
    EXPECT_EQ(answer("1 d", "de_DE"), "24 Std. | 1 Tag in Stunden");
    EXPECT_EQ(answer("32 f", "de_DE"), "0 °C | 32 Grad Fahrenheit in Grad Celsius");
    EXPECT_EQ(answer("10000 kib in gb", "de_DE"), "0,01024 GB | 10.000 Kibibyte in Gigabytes");
    EXPECT_EQ(answer("1.500 m", "fr_FR"), "4 921,26 pi | 1 500 mètres in pieds");
    EXPECT_EQ(title("1 kb", "fr_FR"), "0,976562 Kio");
    EXPECT_EQ(answer("5 km", "ar_EG"), "٣٫١٠٦٨٦ ميل | ٥ كيلومتر in ميل");
    EXPECT_EQ(answer("100000 m in km", "hi_IN"), "100 कि॰मी॰ | 1,00,000 मीटर in किलोमीटर");
    EXPECT_EQ(title("1 mi in m", "en_US_POSIX"), "1,609.34 m"); // where nothing else is set
    EXPECT_EQ(title("5 km", "xx_YY").substr(0, 8), "3.10686 ");
}

TEST(UnitConversionTest, AWordForOneHidesNoOtherNumber) {
    EXPECT_EQ(answer("1 d", "ar_EG"), "٢٤ س | يوم in ساعات");
    EXPECT_THAT(answer("-1 d", "ar_EG"), HasSubstr("١ أيام in ساعات"));
}

} // namespace
} // namespace pello
