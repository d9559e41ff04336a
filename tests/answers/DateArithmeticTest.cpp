#include "answers/DateArithmetic.h"

#include "base/Text.h"
#include "support/AnswerCases.h"
#include "support/RandomText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <map>
#include <string>
#include <string_view>

namespace pello {
namespace {

using std::chrono::sys_days;
using std::chrono::year;
using testing::RandomText;

const DateArithmetic& arithmetic(const std::string& locale) {
    static std::map<std::string, DateArithmetic> made;
    return made.try_emplace(locale, Surroundings{.locale = locale, .timeZone = "Europe/Berlin"})
        .first->second;
}

/// Noon of that day in Berlin, but for an hour in summer.
Date noon(sys_days day) {
    return Date::fromUnix((static_cast<double>(day.time_since_epoch().count()) * 86400) + 39600);
}

constexpr sys_days kToday = year(2026) / 11 / 21; // a Saturday

/// "title | subtitle" of the countdown, or else of the offset; "-" without an answer.
std::string answer(std::string_view query, const std::string& locale = "en_US",
                   Date now = noon(kToday)) {
    auto result = arithmetic(locale).countdown(query, now);
    result = result ? result : arithmetic(locale).offset(query, now);
    if (!result) {
        return "-";
    }
    EXPECT_EQ(result->kind, ConversionResult::Kind::date);
    return result->title + " | " + result->subtitle;
}

std::string title(std::string_view query, const std::string& locale = "en_US",
                  Date now = noon(kToday)) {
    const std::string both = answer(query, locale, now);
    return both.substr(0, both.find(" |"));
}

/// Checks cases such as "days to tomorrow: 1 day", with ";" between them.
void expectTitles(const std::string& locale, std::string_view cases, Date now = noon(kToday)) {
    testing::forEachCase(cases, [&](std::string_view query, std::string_view expected) {
        EXPECT_EQ(title(query, locale, now), expected) << query;
    });
}

TEST(DateArithmeticTest, CountsFromTodayToTheNextSuchDayOrFromTheLast) {
    EXPECT_EQ(answer("days until christmas"),
              "34 days | From Saturday, November 21, 2026 to Friday, December 25, 2026");
    EXPECT_EQ(answer("days since 1 jan 2020"),
              "2,516 days | From Wednesday, January 1, 2020 to Saturday, November 21, 2026");
    expectTitles("en_US",
                 "until 25 dec: 34 days; till 20 nov: 364 days; 'til 21 nov: 0 days; "
                 "days to tomorrow: 1 day; days before easter: 127 days; since 21 nov: 0 days; "
                 "since 22 nov: 364 days; days from halloween: 21 days; since monday: 5 days; "
                 "until mon: 2 days; until saturday: 0 days; until next saturday: 7 days; "
                 "days are there until 3 march: 102 days; days is it until 3 march: 102 days; "
                 "days are left until the 3rd of march: 102 days; days until 29 feb: 465 days; "
                 "days until december: 10 days; days until may 2027: 161 days; "
                 "days since 2026: 324 days");
}

TEST(DateArithmeticTest, CountsWholeUnitsAndTheDaysThatAreLeft) {
    expectTitles("en_US", "weeks until easter: 18 weeks 1 day; weeks until 28 november: 1 week; "
                          "weeks until tomorrow: 1 day; weeks until today: 0 weeks; "
                          "months until 21 december 2027: 13 months; "
                          "months since 31 january: 9 months 21 days; "
                          "months between 2026-01-31 and 2026-02-28: 1 month; "
                          "months between 2026-01-31 and 2026-03-30: 1 month 30 days; "
                          "years since 12 march 1985: 41 years 254 days; "
                          "years between 29 feb 2024 and 28 feb 2025: 1 year");
}

TEST(DateArithmeticTest, SaysSoWhenTheDayIsOnTheOtherSide) {
    EXPECT_EQ(answer("until 1 jan 2020"),
              "2,516 days ago | From Wednesday, January 1, 2020 to Saturday, November 21, 2026");
    expectTitles("en_US", "since 3 december 2026: in 12 days; until yesterday: 1 day ago; "
                          "weeks until 1 jan 2020: 359 weeks 3 days ago; "
                          "months since 3 january 2027: in 1 month 13 days");
}

TEST(DateArithmeticTest, BetweenTwoDatesTheOrderDoesNotMatter) {
    EXPECT_EQ(answer("days between 1 may and 4 july"),
              "64 days | From Saturday, May 1, 2027 to Sunday, July 4, 2027");
    EXPECT_EQ(answer("between 4 july and 1 may"), answer("between 1 may and 4 july"));
    const Date june = noon(year(2026) / 6 / 1);
    expectTitles("en_US",
                 "between 1 may and 4 july: 64 days; between 25 dec and 1 jan: 7 days; "
                 "between 1 jan and 31 dec: 364 days; between 1 may 2020 and 4 july: 64 days; "
                 "between 25 dec and 1 jan 2020: 7 days; between today and 1 may: 334 days; "
                 "between 2026-12-25 and 2026-11-21: 34 days; "
                 "between easter and easter: 0 days; days from 1 may to 4 july: 64 days",
                 june);
}

TEST(DateArithmeticTest, GoesFromADateToAnother) {
    EXPECT_EQ(answer("today + 3 weeks"),
              "Saturday, December 12, 2026 | 3 weeks from Saturday, November 21, 2026");
    EXPECT_EQ(answer("2 months ago"),
              "Monday, September 21, 2026 | 2 months before Saturday, November 21, 2026");
    EXPECT_EQ(answer("25 dec + 1 month - 3 days"),
              "Friday, January 22, 2027 | 1 month from Friday, December 25, 2026, minus 3 days");
    for (const char* query : {"3 weeks from now", "3 weeks from today", "in 3 weeks", "now + 3w",
                              "today plus 21 days", "today+21d", "in three weeks"}) {
        EXPECT_EQ(answer(query).substr(0, 27), "Saturday, December 12, 2026") << query;
    }
    expectTitles("en_US", "15 march + 90 days: Sunday, June 13, 2027; "
                          "monday + 2 weeks: Monday, December 7, 2026; "
                          "mon - 1 d: Sunday, November 22, 2026; "
                          "a week ago: Saturday, November 14, 2026; "
                          "a fortnight from friday: Friday, December 11, 2026; "
                          "3 days before christmas: Tuesday, December 22, 2026; "
                          "2 weeks after easter: Sunday, April 11, 2027; "
                          "the day after christmas: Saturday, December 26, 2026; "
                          "1 month and 3 days ago: Sunday, October 18, 2026; "
                          "2026-12-25-3d: Tuesday, December 22, 2026; "
                          "1000 days from now: Friday, August 17, 2029");
}

TEST(DateArithmeticTest, MonthsThatAreTooShortGiveTheirLastDay) {
    expectTitles("en_US", "31 january + 1 month: Sunday, February 28, 2027; "
                          "31 january 2028 + 1 month: Tuesday, February 29, 2028; "
                          "31 january + 2 months: Wednesday, March 31, 2027; "
                          "29 feb 2024 + 1 year: Friday, February 28, 2025; "
                          "29 feb 2024 + 48 months: Tuesday, February 29, 2028; "
                          "31 may - 1 month: Friday, April 30, 2027");
}

TEST(DateArithmeticTest, NamesTheDayThatIsAskedFor) {
    EXPECT_EQ(answer("25 december"), "Friday, December 25, 2026 | In 34 days");
    EXPECT_EQ(answer("today"), "Saturday, November 21, 2026 | Today");
    EXPECT_EQ(answer("tomorrow"), "Sunday, November 22, 2026 | Tomorrow");
    EXPECT_EQ(answer("last monday"), "Monday, November 16, 2026 | 5 days ago");
    expectTitles("en_US", "yesterday: Friday, November 20, 2026; "
                          "the day after tomorrow: Monday, November 23, 2026; "
                          "next friday: Friday, November 27, 2026; "
                          "next sat: Saturday, November 28, 2026; "
                          "last sat: Saturday, November 14, 2026; "
                          "this saturday: Saturday, November 21, 2026; "
                          "next week: Saturday, November 28, 2026; "
                          "last month: Wednesday, October 21, 2026; "
                          "next year: Sunday, November 21, 2027; "
                          "next 21 november: Sunday, November 21, 2027; "
                          "last easter: Sunday, April 5, 2026; 29 feb: Tuesday, February 29, 2028");
}

TEST(DateArithmeticTest, ReadsDatesInManyForms) {
    for (const char* query :
         {"25 december", "25 dec.", "25th of december", "the 25th dec", "december 25", "dec 25th",
          "dec 25, 2026", "25 december, 2026", "2026-12-25", "2026/12/25", "12/25/2026", "12/25/26",
          "12.25.2026", "friday, december 25, 2026", "fri 25 dec 2026", "2026 december 25"}) {
        EXPECT_EQ(title(query), "Friday, December 25, 2026") << query;
    }
    expectTitles("en_US", "1/2/46: Tuesday, January 2, 2046; 1/2/47: Thursday, January 2, 1947; "
                          "until 12/25: 34 days; 0001-01-01: Monday, January 1, 1; "
                          "2026-12-25 + 2912084 days: Friday, December 31, 9999; "
                          "1582-10-04 + 1 day: Tuesday, October 5, 1582; "
                          "1066-10-14: Sunday, October 14, 1066");
}

TEST(DateArithmeticTest, HolidaysHaveTheirNames) {
    expectTitles("en_US",
                 "new year: Friday, January 1, 2027; "
                 "valentine’s day: Sunday, February 14, 2027; "
                 "valentines day 2028: Monday, February 14, 2028; "
                 "st. patrick's day: Wednesday, March 17, 2027; "
                 "good friday: Friday, March 26, 2027; easter monday: Monday, March 29, 2027; "
                 "labour day: Saturday, May 1, 2027; may day: Saturday, May 1, 2027; "
                 "pentecost: Sunday, May 16, 2027; midsummer: Thursday, June 24, 2027; "
                 "labor day: Monday, September 6, 2027; hallowe'en: Sunday, October 31, 2027; "
                 "black friday: Friday, November 27, 2026; "
                 "christmas eve: Thursday, December 24, 2026; "
                 "xmas 2030: Wednesday, December 25, 2030; "
                 "boxing day: Saturday, December 26, 2026; "
                 "new years eve: Thursday, December 31, 2026; easter 1500: -");
}

TEST(DateArithmeticTest, WordsThatMeanSomethingElseAreNoDates) {
    constexpr std::string_view kQueries =
        "may|sun|mon|sat|second|march|friday|december|2026|may 2026|1 second|3 m|12/25|"
        "25.12|5.3|25.12.|sun 5|10 days|3 weeks in days|in 5 km|1 d|in 3d|in 3 m|next|"
        "until|days until|days|between|now|days until x|until may|since 2020|to friday|"
        "from monday|to 2030|may + 3 days|today + 3|today + 3 m|today 3 days|+ 3 days|"
        "last day|last days|weeks after easter|next march|next 2030|mar-a-lago|"
        "christmas carol|easter eggs|easter.monday|dec25|h264|today.com|2026-1-5|2026-12|"
        "1-2-2026|10.0.0.1|1.2.26|25/12/2026|31 april|29 feb 2027|32 december|0 may|"
        "2026-02-30|0000-01-01|25 dec 26|25 dec 20261|thursday 25 december 2026|a day|"
        "3 weeks after|12345678 days from now|1.5 weeks from now|between 1 may|"
        "between 1 may and|days from 1 may to|today - 9999999 years|"
        "9999999 days from now|31 december 9999 + 1 day|tomorrow never dies|"
        "in the year 2525";
    for (const std::string_view query : text::split(kQueries, '|')) {
        EXPECT_EQ(answer(query), "-") << query;
    }
    for (const char* query : {"", "\xFF", "5 \xFF", "\xE2\x80", "today\xCC\x81"}) {
        EXPECT_EQ(answer(query), "-") << query;
    }
}

TEST(DateArithmeticTest, AnyTextHasAQuickEnd) {
    std::string sums = "today";
    for (int i = 0; i < 10000; ++i) {
        sums += " + 1 day";
    }
    EXPECT_EQ(answer(sums), "-");
    EXPECT_EQ(answer(std::string(100000, '3') + " days ago"), "-");
    EXPECT_EQ(answer("until " + std::string(190, ',')), "-");
    RandomText random(4);
    for (int i = 0; i < 3000; ++i) {
        (void)answer(random.text(40, "0123 -+./,'\xC3\xA9\xE2\x80\x99untilday"), "fr_FR");
    }
    for (const double extreme : {1e12, -1e12, 1e300, std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(answer("tomorrow", "en_US", Date{extreme}), "-");
        EXPECT_EQ(answer("2026-12-25", "en_US", Date{extreme}), "-");
    }
    EXPECT_EQ(answer("tomorrow", "en_US", noon(year(9999) / 12 / 31)), "-");
    EXPECT_EQ(answer("last christmas", "en_US", noon(year(1) / 1 / 1)), "-");
}

TEST(DateArithmeticTest, ItIsTodayWhereTheReaderIs) {
    const Date lateInBerlin = Date::fromUnix(1'795'298'400 + 1800); // 23:30 on the 21st
    const auto today = [&](const std::string& zone, Date now) {
        const DateArithmetic dates({.locale = "en_US", .timeZone = zone});
        return dates.offset("today", now)->title;
    };
    EXPECT_EQ(today("Europe/Berlin", lateInBerlin), "Saturday, November 21, 2026");
    EXPECT_EQ(today("Europe/Berlin", lateInBerlin + Seconds(1800)), "Sunday, November 22, 2026");
    EXPECT_EQ(today("Asia/Tokyo", lateInBerlin), "Sunday, November 22, 2026");
    EXPECT_EQ(today("Pacific/Honolulu", lateInBerlin + Seconds(1800)),
              "Saturday, November 21, 2026");
    EXPECT_EQ(today("No/Such", lateInBerlin), today("", lateInBerlin));
}

TEST(DateArithmeticTest, ReadsAndWritesAsTheReaderDoes) {
    EXPECT_EQ(answer("weeks until 25. märz", "de_DE"),
              "17 Wochen, 5 Tage | From Samstag, 21. November 2026 to Donnerstag, 25. März 2027");
    EXPECT_EQ(answer("freitag, 25. dezember 2026", "de_DE"),
              "Freitag, 25. Dezember 2026 | In 34 Tagen");
    expectTitles("de_DE",
                 "25.12.2026: Freitag, 25. Dezember 2026; "
                 "25.12.26: Freitag, 25. Dezember 2026; 25. 12.: Freitag, 25. Dezember 2026; "
                 "25. marz: Donnerstag, 25. März 2027; next so.: Sonntag, 22. November 2026; "
                 "until 25.12: 34 Tage; until 1 jan 2020: vor 2.516 Tagen; 12/25/2026: -; "
                 "25.12: -; so: -; mai: -");
    expectTitles("fr_FR",
                 "1er décembre: mardi 1 décembre 2026; 25 decembre: vendredi 25 décembre 2026; "
                 "next mar.: mardi 24 novembre 2026; 25 mar: jeudi 25 mars 2027; "
                 "until 25/12: 34\u00A0jours");
    expectTitles("es_ES", "25 de diciembre de 2026: viernes, 25 de diciembre de 2026");
    expectTitles("ca_ES", "25 d’abril: diumenge, 25 d’abril de 2027");
    expectTitles("hr_HR", "25. 12. 2026.: petak, 25. prosinca 2026.");
    expectTitles(
        "ja_JP",
        "12月25日: 2026年12月25日金曜日; 2026年12月25日: 2026年12月25日金曜日; until 12/25: 34 日");
}

TEST(DateArithmeticTest, ReadersWithOtherDigitsAndCalendarsSeeGregorianDates) {
    expectTitles("ar_EG", "25 ديسمبر: الجمعة، ٢٥ ديسمبر ٢٠٢٦; "
                          "الجمعة، ٢٥ ديسمبر ٢٠٢٦: الجمعة، ٢٥ ديسمبر ٢٠٢٦; until ٢٥/١٢: ٣٤ يومًا");
    expectTitles("hi_IN", "२५ दिसंबर: शुक्रवार, 25 दिसंबर 2026; until 25 दिस॰: 34 दिन");
    expectTitles("ar_SA", "today: السبت، ٢١ نوفمبر ٢٠٢٦");
    expectTitles("fa_IR", "25 دسامبر: جمعه ۲۵ دسامبر ۲۰۲۶");
    expectTitles("th_TH", "25 ธันวาคม: วันศุกร์ที่ 25 ธันวาคม ค.ศ. 2026");
}

} // namespace
} // namespace pello
