#include "answers/TimeTexts.h"

#include "answers/IcuText.h"

#include <unicode/dtfmtsym.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>

#include <algorithm>
#include <cstddef>
#include <span>

namespace pello {
namespace {

using std::chrono::hours;
using std::chrono::minutes;

/// More than any two clocks differ by, those of earlier centuries included.
constexpr int kHours = 48;
constexpr int kMinutes = 60;

/// "0 hours" to `count - 1` of the unit.
std::vector<std::string> counted(int count, const icu::MeasureUnit& unit,
                                 const icu::Locale& reader) {
    const auto format = icu::number::NumberFormatter::withLocale(reader).unit(unit).unitWidth(
        UNUM_UNIT_WIDTH_FULL_NAME);
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        UErrorCode status = U_ZERO_ERROR;
        texts.push_back(utf8(format.formatInt(i, status).toString(status)));
    }
    return texts;
}

std::array<std::string, 7> weekdayNames(const icu::Locale& reader) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(reader, status);
    int32_t count = 0;
    const icu::UnicodeString* const names = symbols.getWeekdays(
        count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::WIDE);
    const std::span all(names, static_cast<std::size_t>(count));
    std::array<std::string, 7> weekdays;
    for (std::size_t i = 1; i < std::min<std::size_t>(all.size(), 8); ++i) {
        weekdays.at(i - 1) = utf8(all[i]); // ICU counts from 1, which is Sunday
    }
    return weekdays;
}

} // namespace

TimeTexts::TimeTexts(const icu::Locale& reader)
    : clock_(icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, reader)),
      weekdays_(weekdayNames(reader)),
      hours_(counted(kHours, icu::MeasureUnit::getHour(), reader)),
      minutes_(counted(kMinutes, icu::MeasureUnit::getMinute(), reader)) {
    if (clock_ != nullptr) {
        clock_->setTimeZone(*icu::TimeZone::getGMT()); // it is given what clocks show anywhere
        static_cast<void>(clock(WallTime()));
    }
}

std::string TimeTexts::clock(WallTime time) const {
    icu::UnicodeString result;
    if (clock_ != nullptr) {
        clock_->format(static_cast<UDate>(time.time_since_epoch().count()), result);
    }
    return utf8(result);
}

std::string TimeTexts::clock(WallTime time, std::chrono::local_days today) const {
    std::string result = clock(time);
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const auto difference = (day - today).count();
    if (difference == 1) {
        result.append(" (tomorrow)");
    } else if (difference == -1) {
        result.append(" (yesterday)");
    } else if (difference != 0) {
        const std::chrono::weekday weekday(day);
        result.append(" (").append(weekdays_.at(weekday.c_encoding())).append(")");
    }
    return result;
}

std::string TimeTexts::duration(minutes length) const {
    const auto whole = std::chrono::floor<hours>(length);
    const auto past = static_cast<std::size_t>((length - whole).count());
    const auto hour = std::min(static_cast<std::size_t>(whole.count()), hours_.size() - 1);
    if (past == 0) {
        return hours_[hour];
    }
    return hour == 0 ? minutes_[past] : hours_[hour] + ' ' + minutes_[past];
}

std::string TimeTexts::comparison(std::string_view place, std::chrono::milliseconds ahead,
                                  std::string_view other) const {
    const auto difference = std::chrono::round<minutes>(ahead);
    if (difference == minutes(0) && place == other) {
        return std::string("Local time in ").append(place);
    }
    std::string result(place);
    if (difference == minutes(0)) {
        result.append(" has the same time as ");
    } else {
        result.append(" is ").append(duration(std::chrono::abs(difference)));
        result.append(difference > minutes(0) ? " ahead of " : " behind ");
    }
    return result.append(other);
}

std::string TimeTexts::comparison(std::string_view time, std::string_view place,
                                  std::chrono::milliseconds ahead, std::string_view other) const {
    const auto difference = std::chrono::round<minutes>(ahead);
    std::string result(time);
    result.append(" in ").append(place);
    if (difference == minutes(0) && place == other) {
        return result;
    }
    result.append(", ");
    if (difference == minutes(0)) {
        result.append("the same time as ");
    } else {
        result.append(duration(std::chrono::abs(difference)));
        result.append(difference > minutes(0) ? " ahead of " : " behind ");
    }
    return result.append(other);
}

} // namespace pello
