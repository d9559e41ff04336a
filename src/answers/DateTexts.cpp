#include "answers/DateTexts.h"

#include "answers/IcuText.h"

#include <unicode/datefmt.h>
#include <unicode/gregocal.h>
#include <unicode/listformatter.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>
#include <unicode/numfmt.h>
#include <unicode/reldatefmt.h>
#include <unicode/timezone.h>
#include <unicode/udisplaycontext.h>
#include <unicode/unistr.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace pello {
namespace {

using icu::RelativeDateTimeFormatter;
using icu::number::LocalizedNumberFormatter;

constexpr UDate kMillisecondsPerDay = 86'400'000;

/// The calendar that dates are shown in: Gregorian at all times, at Greenwich.
std::unique_ptr<icu::Calendar> calendar(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    auto made = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), locale, status);
    made->setGregorianChange(U_DATE_MIN, status);
    return made;
}

/// Null when ICU has no data.
std::unique_ptr<icu::DateFormat> dateFormat(const icu::Locale& locale) {
    std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateInstance(icu::DateFormat::kFull, locale));
    return format;
}

LocalizedNumberFormatter lengthFormat(const icu::Locale& locale, const icu::MeasureUnit& unit) {
    return icu::number::NumberFormatter::withLocale(locale).unit(unit).unitWidth(
        UNUM_UNIT_WIDTH_FULL_NAME);
}

} // namespace

struct DateTexts::Formats {
    explicit Formats(const icu::Locale& locale)
        : calendar(pello::calendar(locale)),
          dates(dateFormat(locale)),
          lengths{lengthFormat(locale, icu::MeasureUnit::getDay()),
                  lengthFormat(locale, icu::MeasureUnit::getWeek()),
                  lengthFormat(locale, icu::MeasureUnit::getMonth()),
                  lengthFormat(locale, icu::MeasureUnit::getYear())},
          list(icu::ListFormatter::createInstance(locale, ULISTFMT_TYPE_UNITS,
                                                  ULISTFMT_WIDTH_NARROW, status)),
          distances(locale, icu::NumberFormat::createInstance(locale, status), UDAT_STYLE_LONG,
                    UDISPCTX_CAPITALIZATION_NONE, status),
          remarks(locale, icu::NumberFormat::createInstance(locale, status), UDAT_STYLE_LONG,
                  UDISPCTX_CAPITALIZATION_FOR_BEGINNING_OF_SENTENCE, status) {}

    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Calendar> calendar;
    std::unique_ptr<icu::DateFormat> dates;
    /// In the order of CalendarUnit.
    std::array<LocalizedNumberFormatter, 4> lengths;
    std::unique_ptr<icu::ListFormatter> list;
    RelativeDateTimeFormatter distances;
    RelativeDateTimeFormatter remarks;

    [[nodiscard]] icu::UnicodeString length(CalendarStep step) const {
        UErrorCode failure = U_ZERO_ERROR;
        return lengths.at(static_cast<std::size_t>(step.unit))
            .formatInt(std::abs(std::int64_t{step.count}), failure)
            .toString(failure);
    }
};

DateTexts::DateTexts(const icu::Locale& locale) : formats_(std::make_unique<Formats>(locale)) {
    // The first text of each kind has ICU read its data.
    (void)date(CalendarDay());
    for (const auto unit :
         {CalendarUnit::day, CalendarUnit::week, CalendarUnit::month, CalendarUnit::year}) {
        (void)length(CalendarSpan{.whole = {.count = 3, .unit = unit}, .days = 2});
    }
    (void)distance(3);
    (void)remark(1);
}

DateTexts::~DateTexts() = default;

std::string DateTexts::date(CalendarDay day) const {
    UErrorCode status = U_ZERO_ERROR;
    if (U_FAILURE(formats_->status) != 0 || formats_->dates == nullptr) {
        return {};
    }
    formats_->calendar->setTime(
        static_cast<double>(day.time_since_epoch().count()) * kMillisecondsPerDay, status);
    icu::UnicodeString text;
    icu::FieldPosition noField(icu::FieldPosition::DONT_CARE);
    return utf8(formats_->dates->format(*formats_->calendar, text, noField));
}

std::string DateTexts::length(CalendarStep step) const {
    return utf8(formats_->length(step));
}

std::string DateTexts::length(const CalendarSpan& span) const {
    if (span.days == 0) {
        return length(span.whole);
    }
    const CalendarStep rest{.count = span.days};
    if (span.whole.count == 0) {
        return length(rest);
    }
    if (U_FAILURE(formats_->status) != 0) {
        return {};
    }
    UErrorCode status = U_ZERO_ERROR;
    const std::array parts = {formats_->length(span.whole), formats_->length(rest)};
    icu::UnicodeString text;
    return utf8(
        formats_->list->format(parts.data(), static_cast<int32_t>(parts.size()), text, status));
}

std::string DateTexts::distance(int days) const {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    return utf8(formats_->distances.formatNumeric(days, UDAT_REL_UNIT_DAY, text, status));
}

std::string DateTexts::remark(int days) const {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    const bool hasWord = std::abs(days) <= 1;
    return utf8(hasWord ? formats_->remarks.format(days, UDAT_REL_UNIT_DAY, text, status)
                        : formats_->remarks.formatNumeric(days, UDAT_REL_UNIT_DAY, text, status));
}

} // namespace pello
