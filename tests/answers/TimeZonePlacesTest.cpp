#include "answers/TimeZonePlaces.h"

#include "answers/PlaceSpelling.h"
#include "answers/TimeZoneRows.h"
#include "base/Text.h"

#include <gtest/gtest.h>
#include <unicode/gregocal.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace pello {
namespace {

const TimeZonePlaces& places() {
    static const TimeZonePlaces made(icu::Locale::getUS(), "Europe/Berlin");
    return made;
}

/// "shown name, zone" of the place called `name`; "-" when there is none.
std::string place(std::string_view name) {
    const auto* found = places().find(name);
    found = found != nullptr ? found : places().find(plainSpelling(name));
    if (found == nullptr) {
        return "-";
    }
    const TimePlace& place = places().place(*found);
    icu::UnicodeString zone = "UTC";
    if (place.zone != nullptr) {
        place.zone->getID(zone);
    }
    std::string text = place.name + ", ";
    return zone.toUTF8String(text);
}

/// All names in the rows of the tables, as found.
std::vector<std::string> tabledNames() {
    std::vector<std::string> names;
    const auto add = [&](std::string_view piece) {
        for (const std::string_view name : text::split(piece, '=')) {
            names.push_back(text::composed(text::lowercased(name)));
        }
    };
    for (const auto& row : TimeZoneRows::cities()) {
        std::ranges::for_each(text::split(row.names, '|'), add);
    }
    for (const auto& row : TimeZoneRows::abbreviations()) {
        std::ranges::for_each(text::split(row.names, '|'), add);
    }
    for (const auto& row : TimeZoneRows::countries()) {
        std::ranges::for_each(text::split(row.names, '|'), add);
    }
    return names;
}

TEST(TimeZonePlacesTest, EveryRowHasAKnownZoneAndNoNameStandsTwice) {
    const TimeZones zones(icu::Locale::getUS(), "");
    for (const auto& row : TimeZoneRows::cities()) {
        EXPECT_NE(zones.named(row.zone), nullptr) << row.zone;
    }
    for (const auto& row : TimeZoneRows::abbreviations()) {
        EXPECT_TRUE(row.zone.empty() || zones.named(row.zone) != nullptr) << row.zone;
    }
    for (const auto& row : TimeZoneRows::countries()) {
        EXPECT_TRUE(row.zone.empty() || zones.named(row.zone) != nullptr) << row.zone;
    }
    std::set<std::string> seen;
    for (const std::string& name : tabledNames()) {
        EXPECT_TRUE(seen.insert(name).second) << name;
        EXPECT_NE(place(name), "-") << name;
    }
    EXPECT_GT(seen.size(), 400U);
}

TEST(TimeZonePlacesTest, WhatAbbreviationsAreShownAsIsIcusNameOrACountry) {
    const std::set<std::string_view> withoutMetazone = {"bst", "trt"};
    for (const auto& row : TimeZoneRows::abbreviations()) {
        const std::string_view name = text::split(row.names, '|').front();
        EXPECT_EQ(row.shown.empty(), withoutMetazone.contains(name)) << name;
        const std::string shown = place(name).substr(0, place(name).find(','));
        if (!row.zone.empty() && !row.shown.empty()) {
            EXPECT_TRUE(shown.ends_with("Time")) << name << ": " << shown;
        }
    }
    EXPECT_EQ(place("pst"), "Pacific Time, America/Los_Angeles");
    EXPECT_EQ(place("cst"), "Central Time, America/Chicago");
    EXPECT_EQ(place("ist"), "India Standard Time, Asia/Calcutta");
    EXPECT_EQ(place("bst"), "United Kingdom, Europe/London");
}

TEST(TimeZonePlacesTest, EveryZonesCityIsFound) {
    const TimeZones zones(icu::Locale::getGermany(), "");
    const TimeZonePlaces german(icu::Locale::getGermany(), "");
    int misleading = 0;
    for (const auto& [identifier, zone] : zones.all()) {
        for (const std::string& city : {zone.city, zone.englishCity}) {
            const std::string lower = text::composed(text::lowercased(city));
            const auto* exact = german.find(lower);
            const auto* plain = german.find(plainSpelling(lower));
            misleading += exact == nullptr || plain == nullptr ? 1 : 0;
        }
    }
    EXPECT_LE(misleading, 4); // the two islands that are called like holidays
    EXPECT_GT(zones.all().size(), 400U);
}

TEST(TimeZonePlacesTest, NamesAreFoundHoweverTheyAreSpelt) {
    EXPECT_EQ(plainSpelling("são paulo"), "sao paulo");
    EXPECT_EQ(plainSpelling("st. john’s"), "st johns");
    EXPECT_EQ(plainSpelling("port-au-prince"), "port au prince");
    EXPECT_EQ(plainSpelling("łódź"), "lodz");
    EXPECT_EQ(plainSpelling("서울"), "서울");
    EXPECT_EQ(plainSpelling("हिन्दी"), "हिन्दी");
    EXPECT_EQ(place("zürich"), "Zurich, Europe/Zurich");
    EXPECT_EQ(place("zuerich"), "Zurich, Europe/Zurich");
    EXPECT_EQ(place("america/new_york"), "New York, America/New_York");
    EXPECT_EQ(place("us/pacific"), "Los Angeles, America/Los_Angeles");
    EXPECT_EQ(place("calcutta"), "Kolkata, Asia/Calcutta");
    EXPECT_EQ(place("belfast"), "Belfast, Europe/London");
    EXPECT_EQ(place("new yor"), "-");
    EXPECT_EQ(place(""), "-");
}

TEST(TimeZonePlacesTest, OfSeveralPlacesWithANameTheLargerIsMeant) {
    EXPECT_EQ(place("san juan"), "San Juan, America/Puerto_Rico");
    EXPECT_EQ(place("san jose"), "San Jose, America/Los_Angeles");
    EXPECT_EQ(place("san josé"), "San José, America/Costa_Rica");
    EXPECT_EQ(place("st johns"), "St. John’s, America/St_Johns");
    EXPECT_EQ(place("birmingham"), "Birmingham, Europe/London");
    EXPECT_EQ(place("petersburg"), "Saint Petersburg, Europe/Moscow");
    EXPECT_EQ(place("washington"), "Washington, America/New_York");
}

TEST(TimeZonePlacesTest, CountriesWithOneTimeAreFound) {
    EXPECT_EQ(place("japan"), "Japan, Asia/Tokyo");
    EXPECT_EQ(place("germany"), "Germany, Europe/Berlin");
    EXPECT_EQ(place("china"), "China, Asia/Shanghai");
    EXPECT_EQ(place("uk"), "United Kingdom, Europe/London");
    EXPECT_EQ(place("trinidad and tobago"), "Trinidad & Tobago, America/Port_of_Spain");
    EXPECT_EQ(place("cote divoire"), "Côte d’Ivoire, Africa/Abidjan");
    for (const char* wide :
         {"united states", "russia", "canada", "australia", "brazil", "mexico"}) {
        EXPECT_EQ(place(wide), "-") << wide;
    }
}

TEST(TimeZonePlacesTest, CapitalsAreFound) {
    for (const std::string_view capital : text::split(
             "abu dhabi|abuja|accra|addis ababa|ankara|asunción|bandar seri begawan|basseterre|"
             "beijing|belmopan|bern|brasilia|bridgetown|canberra|castries|dodoma|doha|"
             "georgetown|gitega|guatemala city|hanoi|honiara|islamabad|jerusalem|kingston|"
             "kingstown|kuwait city|kyiv|lilongwe|lobamba|malé|manama|moroni|n'djamena|"
             "naypyidaw|new delhi|ngerulmud|nuku'alofa|ottawa|palikir|panama city|podgorica|"
             "port louis|port vila|praia|pretoria|quito|rabat|roseau|san salvador|sanaa|"
             "st. george's|sucre|suva|tirana|valletta|vatican city|washington dc|wellington|"
             "yamoussoukro|yaoundé|yaren",
             '|')) {
        EXPECT_NE(place(capital), "-") << capital;
    }
}

/// When `calendar` has the wall time.
double momentOf(icu::Calendar& calendar, WallTime wall) {
    UErrorCode status = U_ZERO_ERROR;
    const auto day = std::chrono::floor<std::chrono::days>(wall);
    const std::chrono::year_month_day date(day);
    const auto minutes = std::chrono::floor<std::chrono::minutes>(wall - day);
    calendar.clear();
    calendar.set(
        static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())) - 1,
        static_cast<int>(static_cast<unsigned>(date.day())), 0, static_cast<int>(minutes.count()));
    return calendar.getTime(status);
}

TEST(TimeZonePlacesTest, AroundEveryChangeClocksAgreeWithCalendarsAndTheirDefaults) {
    const TimeZones zones(icu::Locale::getUS(), "");
    for (const auto& [identifier, zone] : zones.all()) {
        UErrorCode status = U_ZERO_ERROR;
        icu::GregorianCalendar calendar(*zone.clock, status);
        const TimePlace place{.name = identifier, .zone = zone.clock.get()};
        icu::TimeZoneTransition change;
        UDate from = 6.3e11; // in 1989
        for (int i = 0; i < 6 && zone.clock->getNextTransition(from, 0, change) != 0; ++i) {
            from = change.getTime();
            const Moment moment{std::chrono::milliseconds(static_cast<std::int64_t>(from))};
            const WallTime wall = place.wallTimeAt(moment);
            for (int quarter = -10; quarter <= 10; ++quarter) {
                const WallTime near = wall + std::chrono::minutes(15 * quarter);
                EXPECT_EQ(static_cast<double>(place.momentOf(near).time_since_epoch().count()),
                          momentOf(calendar, near))
                    << identifier << ' ' << near.time_since_epoch().count();
            }
        }
    }
}

} // namespace
} // namespace pello
