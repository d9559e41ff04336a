#pragma once

#include "answers/PhraseTable.h"

#include <unicode/locid.h>

#include <chrono>
#include <cstddef>
#include <optional>

namespace pello {

/// The months and weekdays by their names, whole and abbreviated, with accents or without, in the
/// reader's language and in English. Where the two disagree the reader's language holds. Immutable;
/// safe on any thread.
class CalendarNames {
public:
    using Month = PhraseTable<std::chrono::month>::Match;
    using Weekday = PhraseTable<std::chrono::weekday>::Match;

    /// The names of `locale`, which must have the Gregorian calendar (see GregorianLocale.h).
    explicit CalendarNames(const icu::Locale& locale);

    /// The month or weekday whose name begins at piece `at`.
    [[nodiscard]] std::optional<Month> month(const DateWords& words, std::size_t at) const {
        return months_.longest(words, at);
    }
    [[nodiscard]] std::optional<Weekday> weekday(const DateWords& words, std::size_t at) const {
        return weekdays_.longest(words, at);
    }

private:
    void addNames(const icu::Locale& locale);

    PhraseTable<std::chrono::month> months_;
    PhraseTable<std::chrono::weekday> weekdays_;
};

} // namespace pello
