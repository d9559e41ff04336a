#include "answers/TimeZoneConversion.h"

#include "base/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace pello {
namespace {

using namespace std::chrono_literals;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A reader, and when the query is typed.
struct Asked {
    std::string locale = "en_US";
    std::string zone = "Europe/Berlin";
    /// In UTC: a Saturday in winter at 14:00.
    std::chrono::sys_seconds now = std::chrono::sys_days(2026y / 11 / 21) + 14h;
};

Asked at(std::chrono::sys_seconds now, std::string zone = "Europe/Berlin") {
    return {.zone = std::move(zone), .now = now};
}

std::optional<ConversionResult> converted(std::string_view query, const Asked& asked) {
    static std::map<std::pair<std::string, std::string>, TimeZoneConversion> made;
    const auto found = made.try_emplace(
        {asked.locale, asked.zone}, Surroundings{.locale = asked.locale, .timeZone = asked.zone});
    const auto seconds = static_cast<double>(asked.now.time_since_epoch().count());
    return found.first->second.convert(text::lowercased(query), Date::fromUnix(seconds));
}

/// "title | subtitle" of the answer, with plain spaces only; "-" without an answer.
std::string answer(std::string_view query, const Asked& asked = {}) {
    const auto result = converted(query, asked);
    if (!result) {
        return "-";
    }
    EXPECT_EQ(result->kind, ConversionResult::Kind::time);
    const std::string both = result->title + " | " + result->subtitle;
    std::string plain;
    for (const std::string_view word : text::words(both)) {
        plain.append(plain.empty() ? "" : " ").append(word);
    }
    return plain;
}

std::string title(std::string_view query, const Asked& asked = {}) {
    const std::string both = answer(query, asked);
    return both.substr(0, both.find(" |"));
}

std::string subtitle(std::string_view query, const Asked& asked = {}) {
    const std::string both = answer(query, asked);
    return both == "-" ? both : both.substr(both.find(" |") + 3);
}

TEST(TimeZoneConversionTest, TellsWhatTimeItIsElsewhere) {
    const std::string tokyo = "11:00 PM | Tokyo is 8 hours ahead of Berlin";
    for (const std::string_view query : text::split(
             "time in tokyo|tokyo time|time tokyo|what time is it in tokyo|"
             "what time is it in Tokyo?|what's the time in tokyo ?|what’s the time in tokyo|"
             "whats the time in tokyo|what is the time in tokyo|"
             "what is the current time in tokyo|current time in tokyo|local time in tokyo|"
             "now in tokyo|time now in tokyo|time in tokyo now|tokyo time now|"
             "time in tokyo right now|time at tokyo|what time is it right now in tokyo|"
             "current time tokyo|time  in\ttokyo",
             '|')) {
        EXPECT_EQ(answer(query), tokyo) << query;
    }
    EXPECT_EQ(answer("time in new york"), "9:00 AM | New York is 6 hours behind Berlin");
    EXPECT_EQ(answer("time in kathmandu"),
              "7:45 PM | Kathmandu is 4 hours 45 minutes ahead of Berlin");
    EXPECT_EQ(answer("time in paris"), "3:00 PM | Paris has the same time as Berlin");
    EXPECT_EQ(answer("time in berlin"), "3:00 PM | Local time in Berlin");
    EXPECT_EQ(answer("time in the netherlands"),
              "3:00 PM | Netherlands has the same time as Berlin");
}

TEST(TimeZoneConversionTest, MovesATimeFromPlaceToPlace) {
    const std::string moved = "10:00 AM | 3:00 PM in London, 5 hours ahead of New York";
    for (const std::string_view query : text::split(
             "3pm london in new york|3 pm london to new york|3:00pm london as new york|"
             "3.00 pm london into new york|3 p.m. london -> new york|15:00 london → nyc|"
             "3pm london = ny|1500 london to new york|3pm london new york|3pm in london in nyc|"
             "at 3pm london to new york|3pm london time in new york|london 3pm in new york|"
             "what time is 3pm london in new york?",
             '|')) {
        EXPECT_EQ(answer(query), moved) << query;
    }
    EXPECT_EQ(answer("15:00 utc to pst"),
              "7:00 AM | 3:00 PM in UTC, 8 hours ahead of Pacific Time");
    EXPECT_EQ(answer("3pm paris to berlin"), "3:00 PM | 3:00 PM in Paris, the same time as Berlin");
    EXPECT_EQ(answer("3pm berlin to berlin"), "3:00 PM | 3:00 PM in Berlin");
}

TEST(TimeZoneConversionTest, WithOnePlaceTheOtherIsTheReaders) {
    const std::string fromTokyo = "1:30 AM | 9:30 AM in Tokyo, 8 hours ahead of Berlin";
    for (const char* query : {"9:30 tokyo", "9:30am tokyo", "0930 tokyo", "tokyo 9:30",
                              "9:30 am tokyo time", "tokyo 9:30 am", "9:30 tokyo to local"}) {
        EXPECT_EQ(answer(query), fromTokyo) << query;
    }
    EXPECT_EQ(answer("midnight utc"), "1:00 AM | 12:00 AM in UTC, 1 hour behind Berlin");
    for (const char* query : {"3pm in tokyo", "15:00 to tokyo", "1500 = tokyo", "3pm -> tokyo"}) {
        EXPECT_EQ(answer(query), "11:00 PM | 3:00 PM in Berlin, 8 hours behind Tokyo") << query;
    }
}

TEST(TimeZoneConversionTest, TwelveAndTwentyFourHoursAreRead) {
    const std::map<std::string, std::string> times = {
        {"12am", "12:00 AM"},   {"12:30 a.m.", "12:30 AM"}, {"1am", "1:00 AM"},
        {"noon", "12:00 PM"},   {"12pm", "12:00 PM"},       {"12:59 p.m", "12:59 PM"},
        {"03:15", "3:15 AM"},   {"0:00", "12:00 AM"},       {"23:59", "11:59 PM"},
        {"0000", "12:00 AM"},   {"2359", "11:59 PM"},       {"11.15pm", "11:15 PM"},
        {"midday", "12:00 PM"}, {"midnight", "12:00 AM"},   {"3 am", "3:00 AM"}};
    for (const auto& [typed, time] : times) {
        EXPECT_THAT(subtitle(typed + " berlin to london"), StartsWith(time + " in Berlin,"))
            << typed;
    }
    for (const char* typed :
         {"3",       "15",   "153",  "15300", "24:00", "2400",    "1260",    "12:60",  "3:1",
          "3:015",   "3.15", "9.30", "0am",   "13pm",  "13:00pm", "1530 pm", "003pm",  "3:pm",
          "3:15:30", "3xm",  "-3pm", "3e1",   "３pm",  ":30",     "15:",     "3 pm am"}) {
        EXPECT_EQ(answer(std::string(typed) + " berlin to london"), "-") << typed;
        EXPECT_EQ(answer(std::string(typed) + " tokyo"), "-") << typed;
    }
}

TEST(TimeZoneConversionTest, AnotherDayIsNamed) {
    EXPECT_EQ(title("time in sydney"), "1:00 AM (tomorrow)");
    EXPECT_EQ(title("time in utc-12", at(std::chrono::sys_days(2026y / 11 / 21) + 5h)),
              "5:00 PM (yesterday)");
    EXPECT_EQ(title("1am utc+14 to utc-12"), "11:00 PM (Friday)"); // there it is Sunday by now
    EXPECT_EQ(title("3am tokyo in berlin"), "7:00 PM (yesterday)");
    const auto saturdayNight = std::chrono::sys_days(2026y / 11 / 21) + 11h;
    EXPECT_EQ(title("time in utc-12", {.zone = "Pacific/Kiritimati", .now = saturdayNight}),
              "11:00 PM (Friday)");
    EXPECT_EQ(title("time in utc-12",
                    {.locale = "de_DE", .zone = "Pacific/Kiritimati", .now = saturdayNight}),
              "23:00 (Freitag)");
}

TEST(TimeZoneConversionTest, ATimeIsThatOfTheDayThatItIsAtItsPlace) {
    // On Sunday in Tokyo, while Los Angeles has Saturday, the evening before its clocks change.
    const auto now = std::chrono::sys_days(2026y / 3 / 7) + 20h;
    EXPECT_EQ(subtitle("3pm la to utc", at(now)), "3:00 PM in Los Angeles, 8 hours behind UTC");
    EXPECT_EQ(subtitle("3pm la to utc", at(now + 12h)),
              "3:00 PM in Los Angeles, 7 hours behind UTC");
    EXPECT_EQ(title("9am tokyo to utc", at(now)), "12:00 AM");
    EXPECT_EQ(title("3pm in tokyo", at(now, "America/New_York")), "5:00 AM (tomorrow)");
}

TEST(TimeZoneConversionTest, DaylightSavingIsThatOfTheDayAskedAbout) {
    const auto july = std::chrono::sys_days(2026y / 7 / 1) + 12h;
    EXPECT_EQ(title("noon utc to new york"), "7:00 AM");
    EXPECT_EQ(title("noon utc to new york", at(july)), "8:00 AM");
    // Both sets of letters are the region's time.
    EXPECT_EQ(title("noon pst to utc", at(july)), "7:00 PM");
    EXPECT_EQ(answer("noon pdt to utc", at(july)), answer("noon pst to utc", at(july)));
    EXPECT_EQ(answer("noon pdt to utc"), answer("noon pst to utc"));
    EXPECT_EQ(title("noon gmt to london", at(july)), "1:00 PM");
    EXPECT_EQ(title("noon bst to utc", at(july)), "11:00 AM");
}

TEST(TimeZoneConversionTest, SkippedAndDoubledTimesAreAsInCalendars) {
    const auto spring = at(std::chrono::sys_days(2026y / 3 / 8) + 12h);
    EXPECT_EQ(answer("2:30 new york to utc", spring),
              "7:30 AM | 3:30 AM in New York, 4 hours behind UTC");
    EXPECT_EQ(title("1:30 new york to utc", spring), "6:30 AM");
    EXPECT_EQ(title("3:30 new york to utc", spring), "7:30 AM");
    const auto autumn = at(std::chrono::sys_days(2026y / 11 / 1) + 12h);
    EXPECT_EQ(answer("1:30 new york to utc", autumn),
              "6:30 AM | 1:30 AM in New York, 5 hours behind UTC");
    EXPECT_EQ(title("0:30 new york to utc", autumn), "4:30 AM");
}

TEST(TimeZoneConversionTest, OffsetsFromUtcArePlaces) {
    for (const char* place :
         {"utc+5:30", "utc +5:30", "utc + 5:30", "utc+0530", "gmt+5:30", "gmt+05:30"}) {
        EXPECT_EQ(answer(std::string("time in ") + place),
                  "7:30 PM | UTC+5:30 is 4 hours 30 minutes ahead of Berlin")
            << place;
    }
    EXPECT_EQ(answer("3pm gmt-3:30"),
              "7:30 PM | 3:00 PM in UTC-3:30, 4 hours 30 minutes behind Berlin");
    EXPECT_EQ(title("3pm utc−3 to utc+14"), "8:00 AM (tomorrow)");
    EXPECT_EQ(subtitle("time in utc+0"), "UTC is 1 hour behind Berlin");
    for (const char* place :
         {"utc+15", "utc+14:30", "utc-12:30", "utc-13", "utc+", "utc+5:3", "utc+5:60", "utc+005",
          "utc+530", "utc5", "+5", "utc++5", "utc+5h", "est+5"}) {
        EXPECT_EQ(answer(std::string("time in ") + place), "-") << place;
    }
    EXPECT_EQ(answer("utc+5"), "-");
}

TEST(TimeZoneConversionTest, WhatIsNoPhraseHasNoAnswer) {
    EXPECT_EQ(answer(""), "-");
    for (const std::string_view query : text::split(
             "time|now|tokyo|noon|3pm|?|time?|time in|now in|time in to|time in new|"
             "time in lon|time in tokyo tower|time to tokyo|what time is it|what time|"
             "is it time|time in in|time in now|3pm in|3pm to|3pm in in|3pm now|3pm time|"
             "time time|now tokyo|tokyo now|3pm london in|3pm to to tokyo|3pm london new|"
             "3pm london paris tokyo|3pm london to paris to tokyo|tokyo 3pm london|"
             "3pm 4pm tokyo|1530 1630 tokyo|tokyo 2020|paris 1924|london 1200 in tokyo|"
             "time machine|real time|screen time|visual studio code|3 km to mi|5 + 3|12:30|"
             "days until christmas|in 10 days|time in usa|the time|time in the|time in the west|"
             "3pm the|\xFF time|time in \xFF|3pm \xC3",
             '|')) {
        EXPECT_EQ(answer(query), "-") << query;
    }
}

TEST(TimeZoneConversionTest, OrdinaryWordsAreNoPlacesBesideTheWordTime) {
    for (const char* word :
         {"nice",   "party",  "spring",  "summer", "play",      "eat",    "cat",     "wake",
          "art",    "pet",    "reunion", "easter", "christmas", "center", "reading", "split",
          "mobile", "orange", "bath",    "north",  "south",     "net",    "mit",     "turkey"}) {
        EXPECT_EQ(answer(std::string(word) + " time"), "-") << word;
        EXPECT_EQ(answer(std::string("time ") + word), "-") << word;
    }
    for (const char* word : {"nice", "easter", "christmas", "center", "split", "north", "net"}) {
        EXPECT_EQ(answer(std::string("time in ") + word), "-") << word;
        EXPECT_EQ(answer(std::string("3pm ") + word), "-") << word;
    }
    EXPECT_EQ(subtitle("time in cat"), "Central Africa Time is 1 hour ahead of Berlin");
    EXPECT_EQ(title("time in turkey"), "5:00 PM");
}

TEST(TimeZoneConversionTest, AQuantityIsNoTime) {
    for (const char* query :
         {"1530 ft", "1200 pt", "1200 pt to et", "1200 pt in cup", "1000 in cm", "1000 m to ft",
          "1000 cat", "1200 pt tokyo", "1000 mi london", "1000 in", "1200 in pt", "1530"}) {
        EXPECT_EQ(answer(query), "-") << query;
    }
    EXPECT_EQ(title("12:00 pt to et"), "3:00 PM");
    EXPECT_EQ(title("1530 tokyo"), "7:30 AM");
}

TEST(TimeZoneConversionTest, EveryReaderHasTheirOwnTextsAndNames) {
    EXPECT_EQ(answer("time in tokio", {.locale = "de_DE"}),
              "23:00 | Tokio is 8 Stunden ahead of Berlin");
    EXPECT_EQ(
        answer("3pm pst in tokyo", {.locale = "de_DE"}),
        "08:00 (tomorrow) | 15:00 in Nordamerikanische Westküstenzeit, 17 Stunden behind Tokio");
    EXPECT_EQ(answer("time in österreich", {.locale = "de_DE"}),
              "15:00 | Österreich has the same time as Berlin");
    EXPECT_EQ(answer("15:00 londres to le caire", {.locale = "fr_FR"}),
              "17:00 | 15:00 in Londres, 2 heures behind Le Caire");
    EXPECT_EQ(answer("time in le-caire", {.locale = "fr_FR"}),
              answer("time in cairo", {.locale = "fr_FR"}));
    EXPECT_THAT(answer("time in طوكيو", {.locale = "ar_EG"}),
                StartsWith("١١:٠٠ م | طوكيو is ٨ ساعات"));
    EXPECT_EQ(title("time in टोक्यो", {.locale = "hi_IN"}), "11:00 pm");
    EXPECT_EQ(answer("time in टोक्यो", {.locale = "hi_IN"}),
              answer("tokyo time", {.locale = "hi_IN"}));
    EXPECT_EQ(answer("time in टकय", {.locale = "hi_IN"}), "-");
    EXPECT_EQ(title("time in tokyo", {.locale = "en_GB"}), "23:00");
}

TEST(TimeZoneConversionTest, TheReadersClockIsNamedWhateverItsZone) {
    EXPECT_THAT(answer("time in utc", {.zone = "US/Pacific"}), EndsWith("ahead of Los Angeles"));
    EXPECT_THAT(answer("time in tokyo", {.zone = "Etc/UTC"}), EndsWith("ahead of UTC"));
    EXPECT_THAT(answer("time in tokyo", {.zone = "Etc/GMT+5"}),
                EndsWith("14 hours ahead of UTC-5"));
    EXPECT_THAT(answer("time in tokyo", {.zone = "GMT+05:30"}), EndsWith("ahead of UTC+5:30"));
    EXPECT_EQ(answer("midnight utc", {.zone = "UTC"}), "12:00 AM | 12:00 AM in UTC");
    for (const char* zone : {"", "Mars/Phobos", "\xFF"}) {
        EXPECT_THAT(answer("time in utc+5:45", {.zone = zone}), HasSubstr("UTC+5:45 ")) << zone;
        EXPECT_THAT(answer("time in utc+5:45", {.zone = zone}), Not(HasSubstr("Unknown"))) << zone;
    }
}

TEST(TimeZoneConversionTest, AnyTextAndAnyMomentIsSurvived) {
    std::string words;
    for (int i = 0; i < 10000; ++i) {
        words += "time in ";
    }
    EXPECT_EQ(answer(words), "-");
    EXPECT_EQ(answer("3pm " + std::string(100000, 'a')), "-");
    EXPECT_EQ(answer("3pm a b c d e f g h i j k l m n o p q r s t u v w x y z"), "-");
    EXPECT_EQ(answer(std::string(300, '1')), "-");
    const TimeZoneConversion conversion({.locale = "en_US", .timeZone = "Europe/Berlin"});
    for (const double seconds : {std::numeric_limits<double>::quiet_NaN(),
                                 std::numeric_limits<double>::infinity(), 1e300, -1e300, 1e12}) {
        EXPECT_FALSE(conversion.convert("time in tokyo", Date{seconds}));
        EXPECT_FALSE(conversion.convert("3pm tokyo to utc", Date{seconds}));
    }
    EXPECT_NE(title("time in tokyo", at(std::chrono::sys_days(2y / 1 / 1))), "-");
}

} // namespace
} // namespace pello
