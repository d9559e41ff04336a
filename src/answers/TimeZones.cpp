#include "answers/TimeZones.h"

#include "answers/IcuText.h"
#include "answers/UtcOffset.h"
#include "base/ReadersTimeZone.h"

#include <unicode/strenum.h>
#include <unicode/tznames.h>

#include <array>

namespace pello {
namespace {

icu::UnicodeString unicode(std::string_view identifier) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(identifier.data(), static_cast<int32_t>(identifier.size())));
}

std::string regionOf(const icu::UnicodeString& identifier) {
    UErrorCode status = U_ZERO_ERROR;
    std::array<char, 8> region{};
    icu::TimeZone::getRegion(identifier, region.data(), region.size(), status);
    return U_SUCCESS(status) != 0 ? region.data() : "";
}

std::string canonical(const icu::UnicodeString& identifier) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result;
    UBool isSystem = 0;
    icu::TimeZone::getCanonicalID(identifier, result, isSystem, status);
    return U_SUCCESS(status) != 0 ? utf8(result) : std::string();
}

std::string cityOf(const icu::TimeZoneNames& names, const icu::UnicodeString& identifier) {
    icu::UnicodeString name;
    return utf8(names.getExemplarLocationName(identifier, name));
}

} // namespace

TimeZones::TimeZones(const icu::Locale& reader, std::string_view local)
    : localClock_(readersTimeZone(local)) {
    readZones(reader);
    local_ = {.name = nameOf(*localClock_, reader), .zone = localClock_.get()};
}

void TimeZones::readZones(const icu::Locale& reader) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::TimeZoneNames> names(
        icu::TimeZoneNames::createInstance(reader, status));
    const std::unique_ptr<icu::TimeZoneNames> english(
        icu::TimeZoneNames::createInstance(icu::Locale::getEnglish(), status));
    const std::unique_ptr<icu::StringEnumeration> identifiers(
        icu::TimeZone::createTimeZoneIDEnumeration(UCAL_ZONE_TYPE_CANONICAL_LOCATION, nullptr,
                                                   nullptr, status));
    if (U_FAILURE(status) != 0) {
        return;
    }
    while (const icu::UnicodeString* identifier = identifiers->snext(status)) {
        const std::string name = utf8(*identifier);
        zones_.emplace(name, Zone{.clock = readersTimeZone(name),
                                  .region = regionOf(*identifier),
                                  .city = cityOf(*names, *identifier),
                                  .englishCity = cityOf(*english, *identifier)});
    }
}

const TimeZones::Zone* TimeZones::named(std::string_view identifier) const {
    auto found = zones_.find(identifier);
    if (found == zones_.end()) {
        found = zones_.find(canonical(unicode(identifier)));
    }
    return found != zones_.end() ? &found->second : nullptr;
}

std::string TimeZones::nameOf(const icu::BasicTimeZone& clock, const icu::Locale& reader) const {
    icu::UnicodeString identifier;
    clock.getID(identifier);
    if (const Zone* zone = named(utf8(identifier)); zone != nullptr && !zone->city.empty()) {
        return zone->city;
    }
    if (clock.useDaylightTime() == 0) {
        return UtcOffset::name(std::chrono::floor<std::chrono::minutes>(
            std::chrono::milliseconds(clock.getRawOffset())));
    }
    icu::UnicodeString name;
    return utf8(clock.getDisplayName(reader, name));
}

} // namespace pello
