#pragma once

#include "answers/CalendarStep.h"
#include "answers/DatePhrase.h"
#include "answers/DateWords.h"

#include <unicode/locid.h>

#include <array>
#include <cstddef>
#include <optional>

namespace pello {

/// Dates all in numbers: "25.12.2026" in the order that the reader writes them in, and "2026-12-25"
/// in any country. A date that is impossible in that order is none. Immutable; safe on any thread.
class NumericDates {
public:
    struct Match {
        DatePhrase phrase;
        /// The piece after the date.
        std::size_t end;
    };

    /// The order of `locale`, which must have the Gregorian calendar (see GregorianLocale.h).
    explicit NumericDates(const icu::Locale& locale);

    /// The date that begins at piece `at`. A year of two digits is the one from 80 years before
    /// `today` to 20 after it.
    [[nodiscard]] std::optional<Match> read(const DateWords& words, std::size_t at,
                                            CalendarDay today) const;

private:
    enum class Order { dayMonthYear, monthDayYear, yearMonthDay };

    using Pieces = std::array<std::size_t, 3>;

    struct Numbers;

    [[nodiscard]] static Pieces yearMonthDay(const Pieces& written, Order order);
    [[nodiscard]] std::optional<Match> whole(const DateWords& words, const Numbers& numbers,
                                             CalendarDay today) const;
    [[nodiscard]] std::optional<Match> withoutYear(const DateWords& words,
                                                   const Numbers& numbers) const;

    Order order_ = Order::monthDayYear;
    char separator_ = '/';
};

} // namespace pello
