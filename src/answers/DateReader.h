#pragma once

#include "answers/CalendarNames.h"
#include "answers/CalendarStep.h"
#include "answers/DatePhrase.h"
#include "answers/DateWords.h"
#include "answers/NumericDates.h"
#include "answers/PhraseTable.h"

#include <unicode/locid.h>

#include <cstddef>
#include <optional>

namespace pello {

/// Finds out which date words name: "25 december", "dec 25th, 2026", "25.12.2026", "next friday",
/// "tomorrow", "easter 2027". Immutable; safe on any thread.
class DateReader {
public:
    using Match = NumericDates::Match;

    /// Reads names and the order of numbers as `locale` has them, which must have the Gregorian
    /// calendar (see GregorianLocale.h), and English names.
    explicit DateReader(const icu::Locale& locale);

    /// The date that begins at piece `at`, of as many pieces as belong to it.
    [[nodiscard]] std::optional<Match> read(const DateWords& words, std::size_t at,
                                            CalendarDay today) const;

private:
    struct DayAndMonth;

    [[nodiscard]] std::optional<Match> relative(const DateWords& words, std::size_t at,
                                                CalendarDay today) const;
    [[nodiscard]] std::optional<Match> aside(const DateWords& words, std::size_t at,
                                             CalendarDay today) const;
    [[nodiscard]] std::optional<Match> holiday(const DateWords& words, std::size_t at) const;
    [[nodiscard]] std::optional<Match> named(const DateWords& words, std::size_t at) const;
    [[nodiscard]] std::optional<Match> monthAlone(const DateWords& words, std::size_t at) const;
    [[nodiscard]] std::optional<Match> weekday(const DateWords& words, std::size_t at) const;
    [[nodiscard]] std::optional<DayAndMonth> dayAndMonth(const DateWords& words,
                                                         std::size_t at) const;

    CalendarNames names_;
    NumericDates numeric_;
    PhraseTable<const Holiday*> holidays_;
    /// How many days after today.
    PhraseTable<int> relative_;
};

} // namespace pello
