#include "answers/UnitConversion.h"

#include "base/Text.h"
#include "support/AnswerCases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace pello {
namespace {

/// "title | subtitle" of the answer, with plain spaces only; "-" without an answer.
std::string answer(std::string_view query, const std::string& locale = "en_US") {
    static std::map<std::string, UnitConversion> made;
    const auto result = made.try_emplace(locale, locale).first->second.convert(query);
    if (!result) {
        return "-";
    }
    const std::string both = result->title + " | " + result->subtitle;
    std::string plain;
    for (const std::string_view word : text::words(both)) {
        plain.append(plain.empty() ? "" : " ").append(word);
    }
    return plain;
}

/// Checks cases such as "5 km: 3.10686 mi | 5 kilometers in miles", with ";" between them; without
/// the "|" it is the title alone that is compared.
void expectIn(const std::string& locale, std::string_view cases) {
    testing::forEachCase(cases, [&](std::string_view query, std::string_view expected) {
        std::string found = answer(query, locale);
        if (expected.find('|') == std::string_view::npos) {
            found.resize(std::min(found.find(" |"), found.size()));
        }
        EXPECT_EQ(found, expected) << query << " in " << locale;
    });
}

std::string firstName(const Unit& unit) {
    return std::string(text::split(unit.names, '|').front());
}

/// The number that an answer begins with, as written.
std::string numberOf(const std::string& answer) {
    return answer.substr(0, answer.find_first_not_of("-0123456789.,"));
}

TEST(UnitConversionTest, SaysWhatIsConvertedIntoWhat) {
    expectIn("en_US",
             "5 km: 3.10686 mi | 5 kilometers in miles; 5km: 3.10686 mi | 5 kilometers in miles; "
             "5 km to m: 5,000 m | 5 kilometers in meters; "
             "212 f to c: 100°C | 212 degrees Fahrenheit in degrees Celsius; "
             "300 k: 26.85°C | 300 kelvins in degrees Celsius; 5': 1.524 m | 5 feet in meters; "
             "10 \": 25.4 cm | 10 inches in centimeters; 1 b: 8 bit | 1 byte in bits; "
             "0 km: 0 mi | 0 kilometers in miles");
}

TEST(UnitConversionTest, AWordOfTheConnectorsMayBeAUnit) {
    expectIn("en_US",
             "10 in: 25.4 cm; 5 km in: 196,850 in; 5 km in in: 196,850 in; 5 in in cm: 12.7 cm; "
             "5 in cm: 12.7 cm; 5 in in in: 5 in; 5 km mi: 3.10686 mi; "
             "2 cubic  feet\tliters: 56.6337 L; 5 nautical miles: 9.26 km; 72 ° f: 22.2222°C; "
             "72° f ->  ° k: -; 72°f in ° c: 22.2222°C");
    for (const std::string& connector :
         std::initializer_list<std::string>{"in", "to", "as", "into", "=", "->", "→"}) {
        expectIn("en_US", "2 cubic feet " + connector + " fl oz: 1,915.01 fl oz");
    }
}

TEST(UnitConversionTest, WhatIsNotAQuantityHasNoAnswer) {
    const std::string queries =
        "km;5;-;- km;., km;5 kg to km;5 km to;5 km to to mi;to 5 km;5eur in usd;5 km mi ft;1e5 km;"
        "0x10 km;inf km;nan km;½ km;٥ km;−5 km;5 + 3 km;5\u0301km;5 KM;5 km\u0301;5 k\u200dm;5 °;"
        "\xFF;5 \xFF;5 km\xFF;5km->mi;" +
        std::string(400, '9') + " km;1" + std::string(307, '0') + " km;" + // too many meters
        "5 " + std::string(100'000, ' ') + std::string(100'000, '"');
    for (const std::string_view query : text::split(queries, ';')) {
        EXPECT_EQ(answer(query), "-") << query.substr(0, 40);
    }
    EXPECT_EQ(answer(""), "-");
}

TEST(UnitConversionTest, UnitsHaveTheSizesThatTheyAreDefinedWith) {
    expectIn(
        "en_US",
        "1 km in cm: 100,000 cm; 25.4 mm in in: 1 in; 1 mi in yd: 1,760 yd; "
        "1 mi in ft: 5,280 ft; 1 nmi in m: 1,852 m; 1 kg in mg: 1,000,000 mg; "
        "1 t in kg: 1,000 kg; 1 ton in lb: 2,000 lb; 1 st in lb: 14 lb; 1 lb in oz: 16 oz; "
        "1 oz in g: 28.3495 g; 1 g in mg: 1,000 mg; 1 m3 in l: 1,000 L; 1 ft3 in l: 28.3168 L; "
        "1 gal in qt: 4 qt; 1 qt in pt: 2 pt; 1 pt in fl oz: 16 fl oz; "
        "1 fl oz in tbsp: 2 tbsp; 1 tbsp in tsp: 3 tsp; 1 gal in l: 3.78541 L; "
        "1 imp gal in dl: 45.4609 dL; 1 cup in cl: 24 cL; 1 cl in ml: 10 mL; "
        "36 km/h in m/s: 10 m/s; 60 mph in km/h: 96.5606 km/h; 10 knots in km/h: 18.52 km/h; "
        "1 km2 in ha: 100 ha; 1 ha in m2: 10,000 m²; 1 m2 in cm2: 10,000 cm²; "
        "1 sq ft in sq in: 144 in²; 1 sq in in sq cm: 6.4516 cm²; 1 mi2 in ac: 640 ac; "
        "1 ac in m2: 4,046.86 m²; 1 pb in tb: 1,000 TB; 1 gb in mb: 1,000 MB; "
        "1 kb in b: 1,000 byte; 1 pib in tib: 1,024 TiB; 1 gib in mib: 1,024 MiB; "
        "1 kib in b: 1,024 byte; 1 gbit in mbit: 1,000 Mb; 1 mbit in kbit: 1,000 kb; "
        "1 kbit in bit: 1,000 bit; 1 wk in d: 7 days; 1 d in h: 24 hr; 1 h in s: 3,600 sec; "
        "1 min in ms: 60,000 ms");
}

TEST(UnitConversionTest, EveryUnitConvertsToEveryOtherOfItsKindAndBack) {
    for (const Unit& from : UnitTable::units()) {
        for (const Unit& to : UnitTable::units()) {
            const std::string query = "1,000 " + firstName(from) + " in " + firstName(to);
            const std::string there = answer(query);
            if (from.kind != to.kind) {
                EXPECT_EQ(there, "-") << query;
                continue;
            }
            std::string back = answer(numberOf(there) + firstName(to) + " to " + firstName(from));
            std::erase(back, ',');
            EXPECT_NEAR(std::strtod(back.c_str(), nullptr), 1000, 0.01) << query << ", " << there;
        }
    }
}

TEST(UnitConversionTest, EveryNameMeansOneUnitAndEveryUnitHasACounterpart) {
    std::set<std::string_view> seen;
    for (const Unit& unit : UnitTable::units()) {
        const std::string quantity = "3 " + firstName(unit);
        const std::string expected = answer(quantity);
        EXPECT_NE(expected, "-") << quantity;
        EXPECT_EQ(expected, answer(quantity + " as " + std::string(unit.counterpart)));
        for (const std::string_view name : text::split(unit.names, '|')) {
            EXPECT_TRUE(seen.insert(name).second) << name;
            EXPECT_EQ(answer("3 " + std::string(name)), expected) << name;
        }
    }
}

TEST(UnitConversionTest, TemperaturesAreExactWhereScalesMeet) {
    expectIn("en_US",
             "32 f: 0°C; 0 c: 32°F; -0 c: 32°F; -40 c: -40°F; -40 f: -40°C; -459.67 f to k: 0 K; "
             "-273.15 c to k: 0 K; 273.15 k: 0°C; 0 k to f: -459.67°F; -17.8 c: -0.04°F; "
             "98.6 f: 37°C");
}

TEST(UnitConversionTest, SixDigitsAreShownAndAHalfGoesToTheEvenOne) {
    expectIn(
        "en_US",
        "1 kb: 0.976562 KiB; 1000.015 km in m: 1,000,020 m; 1000005 bit in bit: 1,000,000 bit; "
        "1000015 bit in bit: 1,000,020 bit; 1 pb in bits: 8,000,000,000,000,000 bit; "
        "1 bit in pib: 0.000000000000000111022 PiB; -0 m: 0 ft");
}

TEST(UnitConversionTest, DaysAndWeeksAreSpeltOut) {
    expectIn(
        "en_US",
        "1 wk: 7 days | 1 week in days; 1 d: 24 hr | 1 day in hours; "
        "17.5 d in wk: 2.5 weeks | 17.5 days in weeks; 7 d in wk: 1 week; -24 h in d: -1 days; "
        "1.0000001 d in d: 1 days | 1 days in days");
}

TEST(UnitConversionTest, EveryLocaleHasItsOwnTextsAndSeparators) {
    expectIn("de_DE", "5 km: 3,10686 mi | 5 Kilometer in Meilen; 1 d: 24 Std. | 1 Tag in Stunden; "
                      "3,5 m: 11,4829 ft; 32 f: 0 °C | 32 Grad Fahrenheit in Grad Celsius; "
                      "10000 kib in gb: 0,01024 GB | 10.000 Kibibyte in Gigabytes");
    expectIn("fr_FR", "1.500 m: 4 921,26 pi | 1 500 mètres in pieds; 1 kb: 0,976562 Kio");
    expectIn("hi_IN", "100000 m in km: 100 कि॰मी॰ | 1,00,000 मीटर in किलोमीटर");
    expectIn("ar_EG", "5 km: ٣٫١٠٦٨٦ ميل | ٥ كيلومتر in ميل; 1.500 m in m: ١٬٥٠٠ متر");
    expectIn("de_CH", "1,500 m in m: 1’500 m");
    expectIn("sv_SE", "-40 c: −40 °F | −40 grader Celsius in grader Fahrenheit");
    expectIn("en_US_POSIX", "1 mi in m: 1,609.34 m"); // where nothing else is set
    EXPECT_TRUE(answer("5 km", "xx_YY").starts_with("3.10686 "));
}

TEST(UnitConversionTest, AWordForOneHidesNoOtherNumber) {
    expectIn("ar_EG", "1 d: ٢٤ س | يوم in ساعات; -1 d: \u061c-٢٤ س | \u061c-١ أيام in ساعات");
}

} // namespace
} // namespace pello
