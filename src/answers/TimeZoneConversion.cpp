#include "answers/TimeZoneConversion.h"

#include "answers/TimePhrase.h"
#include "answers/TimePlace.h"
#include "answers/TimeTexts.h"
#include "answers/TimeZonePlaces.h"
#include "base/ReadersLocale.h"

#include <chrono>
#include <cmath>
#include <string>

namespace pello {
namespace {

using std::chrono::days;

/// `now` as a moment with a calendar day everywhere within the years 1 to 9999.
std::optional<Moment> momentOf(Date now) {
    using namespace std::chrono_literals;
    constexpr Moment kFirst = std::chrono::sys_days(1y / 1 / 1) + days(3);
    constexpr Moment kLast = std::chrono::sys_days(9999y / 12 / 31) - days(3);
    const double milliseconds = std::floor(now.unixSeconds() * 1000);
    const bool isWithin = milliseconds > static_cast<double>(kFirst.time_since_epoch().count()) &&
                          milliseconds < static_cast<double>(kLast.time_since_epoch().count());
    return isWithin ? std::optional(Moment(
                          std::chrono::milliseconds(static_cast<std::int64_t>(milliseconds))))
                    : std::nullopt;
}

} // namespace

struct TimeZoneConversion::Prepared {
    TimeZonePlaces places;
    TimeTexts texts;

    Prepared(const icu::Locale& reader, const Surroundings& surroundings)
        : places(reader, surroundings.timeZone), texts(reader) {}

    [[nodiscard]] ConversionResult timeThatItIs(const TimePlace& place, Moment now) const;
    [[nodiscard]] ConversionResult movedTime(ClockTime time, const TimePlace& source,
                                             const TimePlace& target, Moment now) const;
};

ConversionResult TimeZoneConversion::Prepared::timeThatItIs(const TimePlace& place,
                                                            Moment now) const {
    const TimePlace& local = places.local();
    const auto ahead = place.offsetAt(now) - local.offsetAt(now);
    const auto today = std::chrono::floor<days>(local.wallTimeAt(now));
    return {.kind = ConversionResult::Kind::time,
            .title = texts.clock(place.wallTimeAt(now), today),
            .subtitle = texts.comparison(place.name, ahead, local.name)};
}

ConversionResult TimeZoneConversion::Prepared::movedTime(ClockTime time, const TimePlace& source,
                                                         const TimePlace& target,
                                                         Moment now) const {
    const auto today = std::chrono::floor<days>(source.wallTimeAt(now));
    const Moment moment = source.momentOf(today + time.sinceMidnight);
    const auto ahead = source.offsetAt(moment) - target.offsetAt(moment);
    const std::string sourceTime = texts.clock(source.wallTimeAt(moment));
    return {.kind = ConversionResult::Kind::time,
            .title = texts.clock(target.wallTimeAt(moment), today),
            .subtitle = texts.comparison(sourceTime, source.name, ahead, target.name)};
}

TimeZoneConversion::TimeZoneConversion(const Surroundings& surroundings)
    : prepared_(std::make_unique<Prepared>(readersLocale(surroundings.locale), surroundings)) {
    // The first answer takes far longer than any other.
    static_cast<void>(convert("noon tokyo to new york", Date()));
}

TimeZoneConversion::~TimeZoneConversion() = default;
TimeZoneConversion::TimeZoneConversion(TimeZoneConversion&& other) noexcept = default;
TimeZoneConversion& TimeZoneConversion::operator=(TimeZoneConversion&& other) noexcept = default;

std::optional<ConversionResult> TimeZoneConversion::convert(std::string_view text, Date now) const {
    const auto phrase = TimePhrase::read(text, prepared_->places);
    const auto moment = phrase ? momentOf(now) : std::nullopt;
    if (!moment) {
        return std::nullopt;
    }
    const TimePlace& source = phrase->source ? *phrase->source : prepared_->places.local();
    const TimePlace& target = phrase->target ? *phrase->target : prepared_->places.local();
    return phrase->time ? prepared_->movedTime(*phrase->time, source, target, *moment)
                        : prepared_->timeThatItIs(target, *moment);
}

} // namespace pello
