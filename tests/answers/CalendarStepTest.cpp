#include "answers/CalendarStep.h"

#include "answers/Holidays.h"
#include "support/RandomText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace pello {
namespace {

using std::chrono::days;
using std::chrono::year;
using std::chrono::year_month_day;
using testing::RandomText;
using Unit = CalendarUnit;

constexpr CalendarDay kFirst = year(1) / 1 / 1;
constexpr CalendarDay kLast = year(9999) / 12 / 31;

constexpr CalendarDay on(int inYear, unsigned month, unsigned day) {
    return year(inYear) / std::chrono::month(month) / std::chrono::day(day);
}

/// The date some months on, by turning the calendar's leaves one by one.
year_month_day turningLeaves(year_month_day from, int months) {
    int inYear = static_cast<int>(from.year());
    int month = static_cast<int>(static_cast<unsigned>(from.month()));
    for (; months > 0; --months) {
        month = month == 12 ? 1 : month + 1;
        inYear += month == 1 ? 1 : 0;
    }
    for (; months < 0; ++months) {
        month = month == 1 ? 12 : month - 1;
        inYear -= month == 12 ? 1 : 0;
    }
    year_month_day reached =
        year(inYear) / std::chrono::month(static_cast<unsigned>(month)) / from.day();
    while (!reached.ok()) {
        reached = reached.year() / reached.month() /
                  std::chrono::day(static_cast<unsigned>(reached.day()) - 1);
    }
    return reached;
}

class RandomDays {
public:
    CalendarDay day() { return day(kFirst, kLast); }

    CalendarDay day(CalendarDay first, CalendarDay last) {
        const auto count = static_cast<std::size_t>((last - first).count()) + 1;
        return first + days(static_cast<days::rep>(random_.below(count)));
    }

    int number(int least, int most) {
        const auto count = static_cast<std::size_t>(most - least) + 1;
        return least + static_cast<int>(random_.below(count));
    }

private:
    RandomText random_{20261121};
};

TEST(CalendarStepTest, MonthsGoAsFarAsTurningTheLeavesDoes) {
    RandomDays random;
    for (int i = 0; i < 3000; ++i) {
        const CalendarDay from = random.day(on(200, 1, 1), on(9700, 1, 1));
        const int months = random.number(-2000, 2000);
        const auto expected = CalendarDay(turningLeaves(from, months));
        EXPECT_EQ((CalendarStep{months, Unit::month}.after(from)), expected);
        EXPECT_EQ((CalendarStep{months / 12, Unit::year}.after(from)),
                  CalendarDay(turningLeaves(from, months / 12 * 12)));
    }
}

TEST(CalendarStepTest, ASpanLeadsFromTheFirstDayToTheLastAndLeavesLessThanAUnit) {
    RandomDays random;
    for (int i = 0; i < 3000; ++i) {
        const CalendarDay one = random.day();
        const CalendarDay other =
            i % 2 == 0 ? random.day() : random.day(one, std::min(kLast, one + days(70)));
        const auto [first, last] = std::minmax(one, other);
        for (const Unit unit : {Unit::day, Unit::week, Unit::month, Unit::year}) {
            const CalendarSpan span = CalendarSpan::between(first, last, unit);
            const auto reached = span.whole.after(first);
            EXPECT_EQ(CalendarStep{.count = span.days}.after(reached.value_or(kFirst)), last);
            EXPECT_GE(span.days, 0);
            EXPECT_EQ(span.whole.unit, unit);
            const auto beyond = CalendarStep{span.whole.count + 1, unit}.after(first);
            EXPECT_TRUE(!beyond || *beyond > last);
        }
    }
}

TEST(CalendarStepTest, StepsEndWithTheYearsThatDatesHave) {
    constexpr int kMost = std::numeric_limits<int>::max();
    for (const Unit unit : {Unit::day, Unit::week, Unit::month, Unit::year}) {
        for (const int count : {1, 9999999, kMost}) {
            EXPECT_EQ((CalendarStep{count, unit}.after(kLast)), std::nullopt);
            EXPECT_EQ((CalendarStep{-count, unit}.after(kFirst)), std::nullopt);
        }
        EXPECT_EQ((CalendarStep{0, unit}.after(kLast)), kLast);
    }
    EXPECT_EQ((CalendarStep{9998, Unit::year}.after(kFirst)), on(9999, 1, 1));
    EXPECT_EQ((CalendarStep{-11, Unit::month}.after(on(1, 12, 31))), on(1, 1, 31));
    EXPECT_EQ((CalendarStep{-12, Unit::month}.after(on(1, 12, 31))), std::nullopt);
}

/// Days of `year` by the name, as "month/day"; "-" where it has none.
std::string holiday(std::string_view name, int inYear) {
    for (const Holiday& holiday : Holiday::all()) {
        if (holiday.names.substr(0, holiday.names.find('|')) == name) {
            const auto day = holiday.inYear(inYear);
            const year_month_day date(day.value_or(kFirst));
            return !day ? "-"
                        : std::to_string(static_cast<unsigned>(date.month())) + "/" +
                              std::to_string(static_cast<unsigned>(date.day()));
        }
    }
    return "no such name";
}

TEST(HolidaysTest, EasterIsWhenItWasAndWillBe) {
    struct Easter {
        int year;
        std::string_view date;
    };
    for (const auto& [inYear, date] : std::to_array<Easter>(
             {{1583, "4/10"}, {1761, "3/22"}, {1818, "3/22"}, {1886, "4/25"}, {1900, "4/15"},
              {1943, "4/25"}, {1954, "4/18"}, {1981, "4/19"}, {2000, "4/23"}, {2008, "3/23"},
              {2011, "4/24"}, {2019, "4/21"}, {2024, "3/31"}, {2025, "4/20"}, {2026, "4/5"},
              {2027, "3/28"}, {2038, "4/25"}, {2049, "4/18"}, {2076, "4/19"}, {2285, "3/22"}})) {
        EXPECT_EQ(holiday("easter", inYear), date) << inYear;
    }
    EXPECT_EQ(holiday("easter", 1582), "-");
    EXPECT_EQ(holiday("good friday", 2026), "4/3");
    EXPECT_EQ(holiday("easter monday", 2024), "4/1");
    EXPECT_EQ(holiday("whitsun", 2026), "5/24");
}

TEST(HolidaysTest, SomeFallOnAWeekdayOfTheirMonth) {
    EXPECT_EQ(holiday("thanksgiving", 2026), "11/26");
    EXPECT_EQ(holiday("thanksgiving", 2018), "11/22");
    EXPECT_EQ(holiday("thanksgiving", 2012), "11/22");
    EXPECT_EQ(holiday("black friday", 2019), "11/29");
    EXPECT_EQ(holiday("thanksgiving", 1941), "-");
    EXPECT_EQ(holiday("labor day", 2026), "9/7");
    EXPECT_EQ(holiday("labor day", 2025), "9/1");
}

} // namespace
} // namespace pello
