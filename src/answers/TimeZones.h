#pragma once

#include "answers/TimePlace.h"

#include <unicode/locid.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace pello {

/// The zones that are in use somewhere, with the cities that ICU names for them.
///
/// Read from ICU's data when it is made, in a few milliseconds; immutable, safe on any thread.
class TimeZones {
public:
    struct Zone {
        std::unique_ptr<icu::BasicTimeZone> clock;
        /// ISO 3166; of one zone that several countries share, the country of its city.
        std::string region;
        /// "Tokyo": for the reader, and in English.
        std::string city;
        std::string englishCity;
    };

    /// The zones for a reader whose clock is that of `local`, any identifier of ICU's. An unknown
    /// or empty one is this machine's zone.
    TimeZones(const icu::Locale& reader, std::string_view local);

    /// By identifiers, which are canonical.
    [[nodiscard]] const std::map<std::string, Zone, std::less<>>& all() const { return zones_; }

    /// The zone called `identifier`, by this or any other of its identifiers; null when unknown.
    [[nodiscard]] const Zone* named(std::string_view identifier) const;

    /// The reader's clock, named for the reader.
    [[nodiscard]] const TimePlace& local() const { return local_; }

private:
    void readZones(const icu::Locale& reader);
    [[nodiscard]] std::string nameOf(const icu::BasicTimeZone& clock,
                                     const icu::Locale& reader) const;

    std::map<std::string, Zone, std::less<>> zones_;
    std::unique_ptr<icu::BasicTimeZone> localClock_;
    TimePlace local_;
};

} // namespace pello
