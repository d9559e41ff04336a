#pragma once

#include "answers/TimePlace.h"
#include "answers/TimeZones.h"

#include <unicode/locid.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The places that queries may name: the cities, countries and zones that ICU names in the reader's
/// language and in English, capitals and other well-known cities, and abbreviations.
///
/// Reads ICU's data when it is made, in some ten milliseconds. Immutable; safe on any thread.
class TimeZonePlaces {
public:
    /// A name under which a place is found.
    struct Name {
        std::string text;
        std::uint16_t place = 0;
        /// Whether it is an ordinary word too ("wake"), or a unit of measurement ("pt").
        bool isPlainWord = false;
        bool isUnit = false;
    };

    /// The places for a reader whose clock is that of `localZone`; an unknown or empty one is the
    /// machine's.
    TimeZonePlaces(const icu::Locale& reader, std::string_view localZone);

    /// Where the reader is.
    [[nodiscard]] const TimePlace& local() const { return zones_.local(); }

    /// The place called `name`, in lower case and composed form, or in its plain spelling (see
    /// PlaceSpelling.h); null when there is none.
    [[nodiscard]] const Name* find(std::string_view name) const;

    [[nodiscard]] const TimePlace& place(const Name& name) const { return places_[name.place]; }

    /// All names, in the order of their bytes.
    [[nodiscard]] const std::vector<Name>& names() const { return names_; }

private:
    class Collector;

    TimeZones zones_;
    std::vector<TimePlace> places_;
    std::vector<Name> names_;
    std::size_t longestName_ = 0;
};

} // namespace pello
