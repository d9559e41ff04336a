#pragma once

#include "answers/CalendarStep.h"

#include <unicode/locid.h>

#include <memory>
#include <string>

namespace pello {

/// How dates and lengths of time read in one locale. Everything is prepared when the object is
/// made. Without ICU's data texts are empty. For one thread at a time.
class DateTexts {
public:
    /// The texts of `locale`, which must have the Gregorian calendar (see GregorianLocale.h).
    explicit DateTexts(const icu::Locale& locale);
    ~DateTexts();
    DateTexts(const DateTexts&) = delete;
    DateTexts& operator=(const DateTexts&) = delete;

    /// "Friday, December 25, 2026".
    [[nodiscard]] std::string date(CalendarDay day) const;

    /// "3 weeks", also for those that go back.
    [[nodiscard]] std::string length(CalendarStep step) const;

    /// "4 weeks 6 days". A part without units is left out, unless there is no other.
    [[nodiscard]] std::string length(const CalendarSpan& span) const;

    /// "in 12 days", "2,516 days ago".
    [[nodiscard]] std::string distance(int days) const;

    /// "In 12 days", "Tomorrow": the distance as a line of its own.
    [[nodiscard]] std::string remark(int days) const;

private:
    struct Formats;
    std::unique_ptr<Formats> formats_;
};

} // namespace pello
