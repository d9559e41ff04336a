#include "answers/LocalDay.h"

#include "base/ReadersTimeZone.h"

#include <cmath>

namespace pello {
namespace {

constexpr double kMillisecondsPerSecond = 1000;
constexpr double kMillisecondsPerDay = 86'400'000;
/// More days than from 1970 to either end of the years that dates have.
constexpr double kFarDay = 4'000'000;

} // namespace

struct LocalDay::Zone {
    std::unique_ptr<icu::BasicTimeZone> zone;
};

LocalDay::LocalDay(std::string_view timeZone)
    : zone_(std::make_unique<Zone>(Zone{.zone = readersTimeZone(timeZone)})) {}

LocalDay::~LocalDay() = default;

std::optional<CalendarDay> LocalDay::at(Date moment) const {
    UErrorCode status = U_ZERO_ERROR;
    int32_t raw = 0;
    int32_t saving = 0;
    const double unix = moment.unixSeconds() * kMillisecondsPerSecond;
    if (!(std::abs(unix) < kFarDay * kMillisecondsPerDay)) {
        return std::nullopt;
    }
    zone_->zone->getOffset(unix, 0, raw, saving, status);
    if (U_FAILURE(status) != 0) {
        return std::nullopt;
    }
    const double day = std::floor((unix + raw + saving) / kMillisecondsPerDay);
    return CalendarStep{.count = static_cast<int>(day)}.after(CalendarDay());
}

} // namespace pello
