// Midsummer is kept on 24 June, the day of Saint John; some countries moved it to a weekend near
// that. Labor Day and Labour Day differ: the first is the one of the United States, where
// Thanksgiving is at home too, the second the first of May.
//
// Easter follows the Gregorian reform of 1582, which most countries joined later. Dates that the
// Julian calendar gave to it have no answer.

#include "answers/Holidays.h"

#include <array>

namespace pello {
namespace {

using enum Holiday::Rule;

constexpr int kGregorianEaster = 1583;
constexpr int kLaborDay = 1894;
constexpr int kMayDay = 1890;
/// When the fourth Thursday of November became its day.
constexpr int kThanksgiving = 1942;

constexpr std::array kHolidays = std::to_array<Holiday>({
    {fixed, 1, 1, 1, "new year|new years|new year day|new years day"},
    {fixed, 2, 14, 1,
     "valentines|valentine day|valentines day|st valentines day|saint valentines day"},
    {fixed, 3, 17, 1,
     "st patricks|st patrick day|st patricks day|saint patricks day|st paddys day|patricks day"},
    {afterEaster, 0, -2, kGregorianEaster, "good friday"},
    {afterEaster, 0, 0, kGregorianEaster, "easter|easter sunday|easter day"},
    {afterEaster, 0, 1, kGregorianEaster, "easter monday"},
    {afterEaster, 0, 39, kGregorianEaster, "ascension day"},
    {afterEaster, 0, 49, kGregorianEaster, "whitsun|whit sunday|whitsunday|pentecost"},
    {afterEaster, 0, 50, kGregorianEaster, "whit monday|pentecost monday"},
    {fixed, 5, 1, kMayDay, "labour day|may day|workers day|international workers day"},
    {fixed, 6, 24, 1, "midsummer|midsummer day|midsummers day"},
    {afterFirstMonday, 9, 0, kLaborDay, "labor day"},
    {fixed, 10, 31, 1, "halloween"},
    {afterFourthThursday, 11, 0, kThanksgiving, "thanksgiving|thanksgiving day"},
    {afterFourthThursday, 11, 1, kThanksgiving, "black friday"},
    {fixed, 12, 24, 1, "christmas eve|xmas eve"},
    {fixed, 12, 25, 1, "christmas|christmas day|xmas|xmas day"},
    {fixed, 12, 26, 1, "boxing day"},
    {fixed, 12, 31, 1, "new year eve|new years eve"},
});

/// The Sunday after the full moon of spring, as the calendar reckons that moon: so many days after
/// 21 March. It moves with the place of the year among the 19 after which moons come back to their
/// dates, and by the days that centuries take from the years and from the moons.
CalendarDay easterSunday(int year) {
    const int place = year % 19;
    const int century = year / 100;
    const int leapDaysLeftOut = century - (century / 4);
    const int moonsMoved = ((8 * century) + 13) / 25;
    int moon = ((19 * place) + leapDaysLeftOut - moonsMoved + 15) % 30;
    if (moon == 29 || (moon == 28 && place > 10)) {
        --moon;
    }
    const CalendarDay fullMoon =
        CalendarDay(std::chrono::year(year) / 3 / 21) + std::chrono::days(moon);
    const CalendarDay next = fullMoon + std::chrono::days(1);
    return next + (std::chrono::Sunday - std::chrono::weekday(next));
}

} // namespace

std::optional<CalendarDay> Holiday::inYear(int year) const {
    const auto inMonth = std::chrono::year(year) / std::chrono::month(month);
    const std::chrono::days shift(day);
    if (year < since || year > 9999) {
        return std::nullopt;
    }
    switch (rule) {
    case fixed:
        return calendarDay(year, std::chrono::month(month) / day);
    case afterEaster:
        return easterSunday(year) + shift;
    case afterFirstMonday:
        return CalendarDay(inMonth / std::chrono::Monday[1]) + shift;
    case afterFourthThursday:
        return CalendarDay(inMonth / std::chrono::Thursday[4]) + shift;
    }
    return std::nullopt;
}

std::span<const Holiday> Holiday::all() {
    return kHolidays;
}

} // namespace pello
