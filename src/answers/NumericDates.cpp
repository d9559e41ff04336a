#include "answers/NumericDates.h"

#include <unicode/datefmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/unistr.h>

#include <memory>
#include <string_view>

namespace pello {
namespace {

constexpr int kCentury = 100;
constexpr int kYearsAhead = 20;

/// Empty when ICU has none.
icu::UnicodeString shortPattern(const icu::Locale& locale) {
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateInstance(icu::DateFormat::kShort, locale));
    icu::UnicodeString pattern;
    if (const auto* const simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get())) {
        simple->toPattern(pattern);
    }
    return pattern;
}

/// The year that ends in those two digits, from 80 years before `today` to 20 after it.
int nearYear(int twoDigits, CalendarDay today) {
    const int latest = yearOf(today) + kYearsAhead;
    const int yearsBefore = (((latest - twoDigits) % kCentury) + kCentury) % kCentury;
    return latest - yearsBefore;
}

std::optional<std::chrono::month_day> monthDay(std::optional<int> month, std::optional<int> day) {
    if (!month || !day) {
        return std::nullopt;
    }
    const auto date = std::chrono::month(static_cast<unsigned>(*month)) / *day;
    return date.ok() ? std::optional(date) : std::nullopt;
}

} // namespace

/// Numbers with one and the same separator between them.
struct NumericDates::Numbers {
    char separator = 0;
    std::size_t count = 0;
    Pieces pieces{};
    /// The piece after them.
    std::size_t end = 0;
    bool endsInDot = false;

    static Numbers from(const DateWords& words, std::size_t at) {
        Numbers numbers{.end = at};
        while (numbers.count < numbers.pieces.size() && numbers.takeNumber(words)) {
            numbers.endsInDot = false;
            if (!numbers.takeSeparator(words)) {
                break;
            }
        }
        return numbers;
    }

private:
    /// Only after a dot there may be a space.
    bool takeNumber(const DateWords& words) {
        const bool isInPlace = count == 0 || endsInDot || words.isGlued(end);
        if (!words.isNumber(end) || !isInPlace) {
            return false;
        }
        pieces.at(count++) = end++;
        return true;
    }

    bool takeSeparator(const DateWords& words) {
        const std::string_view sign = words.text(end);
        const bool isSeparator = sign == "." || sign == "/" || sign == "-";
        if (!isSeparator || !words.isGlued(end) || (separator != 0 && separator != sign.front())) {
            return false;
        }
        endsInDot = sign == ".";
        const bool isBetweenNumbers = words.isNumber(end + 1) && words.isGlued(end + 1);
        if (!endsInDot && (!isBetweenNumbers || count == pieces.size())) {
            return false;
        }
        separator = sign.front();
        ++end;
        return true;
    }
};

/// The year, month and day of `written`.
NumericDates::Pieces NumericDates::yearMonthDay(const Pieces& written, Order order) {
    const auto [first, second, third] = written;
    switch (order) {
    case Order::yearMonthDay:
        break;
    case Order::monthDayYear:
        return {third, first, second};
    case Order::dayMonthYear:
        return {third, second, first};
    }
    return written;
}

NumericDates::NumericDates(const icu::Locale& locale) {
    const icu::UnicodeString pattern = shortPattern(locale);
    const int32_t year = pattern.indexOf(u'y');
    const int32_t month = pattern.indexOf(u'M');
    const int32_t day = pattern.indexOf(u'd');
    if (year >= 0 && year < month && month < day) {
        order_ = Order::yearMonthDay;
    } else if (day >= 0 && day < month) {
        order_ = Order::dayMonthYear;
    }
    for (const char separator : {'.', '-', '/'}) {
        if (pattern.indexOf(static_cast<char16_t>(separator)) >= 0) {
            separator_ = separator;
        }
    }
}

std::optional<NumericDates::Match> NumericDates::read(const DateWords& words, std::size_t at,
                                                      CalendarDay today) const {
    const Numbers numbers = Numbers::from(words, at);
    if (numbers.count == 3) {
        return whole(words, numbers, today);
    }
    return numbers.count == 2 ? withoutYear(words, numbers) : std::nullopt;
}

std::optional<NumericDates::Match>
NumericDates::whole(const DateWords& words, const Numbers& numbers, CalendarDay today) const {
    constexpr std::size_t kYearDigits = 4;
    const std::size_t first = numbers.pieces.front();
    const bool isOwn = numbers.separator == separator_;
    const bool isDashed = numbers.separator == '-';
    const bool beginsWithYear = words.number(first, kYearDigits, kYearDigits).has_value();
    if (isDashed && !beginsWithYear && !isOwn) {
        return std::nullopt;
    }
    const Order order = beginsWithYear ? Order::yearMonthDay : order_;
    const auto [yearAt, monthAt, dayAt] = yearMonthDay(numbers.pieces, order);
    auto year = words.number(yearAt, kYearDigits, kYearDigits);
    if (const auto digits = words.number(yearAt, 2, 2); digits && isOwn) {
        year = nearYear(*digits, today);
    }
    const std::size_t fewest = isDashed && beginsWithYear ? 2 : 1; // else "2026-1-5" is a sum
    const auto date = monthDay(words.number(monthAt, fewest, 2), words.number(dayAt, fewest, 2));
    const auto day = year && date ? calendarDay(*year, *date) : std::nullopt;
    return day ? std::optional(Match{.phrase = {.meaning = *day}, .end = numbers.end})
               : std::nullopt;
}

std::optional<NumericDates::Match> NumericDates::withoutYear(const DateWords& words,
                                                             const Numbers& numbers) const {
    if (numbers.separator == '-' || (numbers.separator == '.' && separator_ != '.')) {
        return std::nullopt;
    }
    const bool isDayFirst = order_ == Order::dayMonthYear;
    const auto [first, second, third] = numbers.pieces;
    const auto date = monthDay(words.number(isDayFirst ? second : first, 1, 2),
                               words.number(isDayFirst ? first : second, 1, 2));
    if (!date) {
        return std::nullopt;
    }
    const auto use = numbers.endsInDot ? DatePhrase::Use::alone : DatePhrase::Use::inPhrase;
    return Match{.phrase = {.meaning = *date, .use = use}, .end = numbers.end};
}

} // namespace pello
