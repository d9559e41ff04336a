#include "answers/TimePlace.h"

namespace pello {
namespace {

using std::chrono::milliseconds;

UDate icuDate(milliseconds sinceEpoch) {
    return static_cast<UDate>(sinceEpoch.count());
}

} // namespace

milliseconds TimePlace::offsetAt(Moment moment) const {
    if (zone == nullptr) {
        return offset;
    }
    UErrorCode status = U_ZERO_ERROR;
    int32_t standard = 0;
    int32_t daylightSaving = 0;
    const UBool isLocal = 0;
    zone->getOffset(icuDate(moment.time_since_epoch()), isLocal, standard, daylightSaving, status);
    return milliseconds(standard + daylightSaving);
}

Moment TimePlace::momentOf(WallTime wall) const {
    if (zone == nullptr) {
        return Moment(wall.time_since_epoch() - offset);
    }
    UErrorCode status = U_ZERO_ERROR;
    int32_t standard = 0;
    int32_t daylightSaving = 0;
    // The defaults of ICU's calendars (UCAL_WALLTIME_LAST): the offset before a gap, the one after
    // clocks went back.
    zone->getOffsetFromLocal(icuDate(wall.time_since_epoch()), UCAL_TZ_LOCAL_FORMER,
                             UCAL_TZ_LOCAL_LATTER, standard, daylightSaving, status);
    return Moment(wall.time_since_epoch() - milliseconds(standard + daylightSaving));
}

} // namespace pello
