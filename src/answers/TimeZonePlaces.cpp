// Where two places have a name, the source that comes first keeps it: the tables, which decide such
// cases, then cities in the reader's language, cities in English, countries, and at last what
// identifiers of zones say. A plain spelling gives way to every exact one.

#include "answers/TimeZonePlaces.h"

#include "answers/IcuText.h"
#include "answers/PlaceSpelling.h"
#include "answers/TimeZoneRows.h"
#include "answers/UnitTable.h"
#include "base/Text.h"

#include <unicode/locdspnm.h>
#include <unicode/strenum.h>
#include <unicode/tznames.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>

namespace pello {
namespace {

/// Calls `visit` with each piece of `text` between `separator`s, empty ones too.
template <class Visit>
void forEachPiece(std::string_view text, char separator, Visit visit) {
    std::size_t end = 0;
    while (end != std::string_view::npos) {
        end = text.find(separator);
        visit(text.substr(0, end));
        text.remove_prefix(end != std::string_view::npos ? end + 1 : text.size());
    }
}

/// The names of countries in a language.
class CountryNames {
public:
    explicit CountryNames(const icu::Locale& language)
        : full_(withLength(language, UDISPCTX_LENGTH_FULL)),
          brief_(withLength(language, UDISPCTX_LENGTH_SHORT)) {}

    [[nodiscard]] std::string full(const std::string& region) const { return in(*full_, region); }

    /// "UK"; where there is no shorter name, the full one.
    [[nodiscard]] std::string brief(const std::string& region) const { return in(*brief_, region); }

private:
    using Names = std::unique_ptr<icu::LocaleDisplayNames>;

    static Names withLength(const icu::Locale& language, UDisplayContext length) {
        return Names(icu::LocaleDisplayNames::createInstance(language, &length, 1));
    }

    static std::string in(const icu::LocaleDisplayNames& names, const std::string& region) {
        icu::UnicodeString name;
        return utf8(names.regionDisplayName(region.c_str(), name));
    }

    Names full_;
    Names brief_;
};

/// Whether the identifier is that of a place ("Asia/Tokyo", not "Etc/GMT+5" or "SystemV/PST8").
bool isOfPlace(std::string_view identifier) {
    constexpr std::array<std::string_view, 10> kAreas = {
        "Africa/",   "America/",   "Antarctica/", "Arctic/", "Asia/",
        "Atlantic/", "Australia/", "Europe/",     "Indian/", "Pacific/"};
    return std::any_of(kAreas.begin(), kAreas.end(),
                       [&](std::string_view area) { return identifier.starts_with(area); });
}

/// "New York" out of "America/New_York".
std::string lastElement(std::string_view identifier) {
    std::string element(identifier.substr(identifier.rfind('/') + 1));
    std::replace(element.begin(), element.end(), '_', ' ');
    return element;
}

} // namespace

/// Collects the names of a TimeZonePlaces that is being made.
class TimeZonePlaces::Collector {
public:
    Collector(TimeZonePlaces& places, const icu::Locale& reader)
        : target_(places),
          reader_(reader),
          countriesForReader_(reader),
          countriesInEnglish_(icu::Locale::getEnglish()) {}

    void collect() {
        addAbbreviations();
        addCitiesOfTable();
        addCitiesOfZones(&TimeZones::Zone::city);
        addCitiesOfZones(&TimeZones::Zone::englishCity);
        addCountries();
        addIdentifiers();
        sortNames();
    }

private:
    std::uint16_t newPlace(TimePlace place) {
        target_.places_.push_back(std::move(place));
        return static_cast<std::uint16_t>(target_.places_.size() - 1);
    }

    /// The place of a zone's city.
    std::uint16_t cityOf(const TimeZones::Zone& zone) {
        const auto [found, isNew] = cities_.try_emplace(&zone, std::uint16_t(0));
        if (isNew) {
            found->second = newPlace({.name = zone.city, .zone = zone.clock.get()});
        }
        return found->second;
    }

    void addName(std::string_view name, std::uint16_t place) {
        const std::string lower = text::composed(text::lowercased(name));
        const std::string plain = plainSpelling(lower);
        const Name entry{.text = lower,
                         .place = place,
                         .isPlainWord = TimeZoneRows::isPlainWord(plain),
                         .isUnit = units_.named(lower) != nullptr};
        target_.names_.push_back(entry);
        if (plain != lower) {
            plainNames_.push_back(entry);
            plainNames_.back().text = plain;
        }
    }

    void addNames(std::string_view names, std::uint16_t place) {
        for (const std::string_view name : text::split(names, '|')) {
            addName(name, place);
        }
    }

    [[nodiscard]] std::string countryName(const std::string& region) const {
        return countriesForReader_.full(region);
    }

    void addAbbreviations() {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::TimeZoneNames> names(
            icu::TimeZoneNames::createInstance(reader_, status));
        for (const auto& row : TimeZoneRows::abbreviations()) {
            const TimeZones::Zone* zone = target_.zones_.named(row.zone);
            if (row.zone.empty()) {
                addNames(row.names, newPlace({.name = std::string(row.shown)}));
            } else if (zone != nullptr) {
                std::string shown = names ? metazoneName(*names, row.shown) : "";
                if (shown.empty()) {
                    shown = countryName(zone->region);
                }
                addNames(row.names, newPlace({.name = shown, .zone = zone->clock.get()}));
            }
        }
    }

    /// "Pacific Time"; "India Standard Time" where clocks never change. Empty for no metazone.
    static std::string metazoneName(const icu::TimeZoneNames& names, std::string_view metazone) {
        const icu::UnicodeString identifier(metazone.data(), static_cast<int32_t>(metazone.size()),
                                            US_INV);
        icu::UnicodeString name;
        names.getMetaZoneDisplayName(identifier, UTZNM_LONG_GENERIC, name);
        if (name.isEmpty() != 0) {
            names.getMetaZoneDisplayName(identifier, UTZNM_LONG_STANDARD, name);
        }
        return utf8(name);
    }

    void addCitiesOfTable() {
        for (const auto& row : TimeZoneRows::cities()) {
            if (const TimeZones::Zone* zone = target_.zones_.named(row.zone)) {
                forEachPiece(row.names, '|', [&](std::string_view city) { addCity(city, *zone); });
            }
        }
    }

    /// Adds the city of a table: "City=other name=other name".
    void addCity(std::string_view city, const TimeZones::Zone& zone) {
        const std::string_view first = city.substr(0, city.find('='));
        const std::uint16_t place =
            first.empty() ? cityOf(zone)
                          : newPlace({.name = std::string(first), .zone = zone.clock.get()});
        for (const std::string_view name : text::split(city, '=')) {
            addName(name, place);
        }
    }

    void addCitiesOfZones(std::string TimeZones::Zone::* city) {
        for (const auto& [identifier, zone] : target_.zones_.all()) {
            if (!TimeZoneRows::isMisleading(identifier) && !(zone.*city).empty()) {
                addName(zone.*city, cityOf(zone));
            }
        }
    }

    void addCountries() {
        std::map<std::string, std::vector<const TimeZones::Zone*>> byRegion;
        for (const auto& [identifier, zone] : target_.zones_.all()) {
            byRegion[zone.region].push_back(&zone);
        }
        for (const auto& row : TimeZoneRows::countries()) {
            auto& zones = byRegion[std::string(row.region)];
            if (const auto* chosen = target_.zones_.named(row.zone)) {
                zones.assign(1, chosen);
            }
        }
        std::map<std::string, std::uint16_t> places;
        for (const auto& [region, zones] : byRegion) {
            if (zones.size() == 1) {
                places[region] = addCountry(region, *zones.front());
            }
        }
        for (const auto& row : TimeZoneRows::countries()) {
            if (const auto found = places.find(std::string(row.region)); found != places.end()) {
                addNames(row.names, found->second);
            }
        }
    }

    std::uint16_t addCountry(const std::string& region, const TimeZones::Zone& zone) {
        const std::uint16_t place =
            newPlace({.name = countryName(region), .zone = zone.clock.get()});
        for (const CountryNames* names : {&countriesForReader_, &countriesInEnglish_}) {
            addName(names->full(region), place);
            addName(names->brief(region), place);
        }
        return place;
    }

    /// Adds "america/new_york", "us/pacific", and the cities in them. A city that is none of ICU's
    /// ("Europe/Belfast") is shown by the name in the identifier.
    void addIdentifiers() {
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<icu::StringEnumeration> identifiers(
            icu::TimeZone::createTimeZoneIDEnumeration(UCAL_ZONE_TYPE_ANY, nullptr, nullptr,
                                                       status));
        if (U_FAILURE(status) != 0) {
            return;
        }
        while (const icu::UnicodeString* each = identifiers->snext(status)) {
            const std::string identifier = utf8(*each);
            const TimeZones::Zone* zone = target_.zones_.named(identifier);
            if (zone == nullptr || identifier.find('/') == std::string::npos) {
                continue;
            }
            addName(identifier, cityOf(*zone));
            // Those with a state in them are small towns, with names of larger ones elsewhere.
            const auto slashes = std::count(identifier.begin(), identifier.end(), '/');
            if (slashes == 1 && isOfPlace(identifier) && !TimeZoneRows::isMisleading(identifier)) {
                addLastElement(identifier, *zone);
            }
        }
    }

    void addLastElement(const std::string& identifier, const TimeZones::Zone& zone) {
        const std::string city = lastElement(identifier);
        const bool isCanonical = target_.zones_.all().contains(identifier);
        addName(city,
                isCanonical ? cityOf(zone) : newPlace({.name = city, .zone = zone.clock.get()}));
    }

    void sortNames() {
        auto& names = target_.names_;
        std::move(plainNames_.begin(), plainNames_.end(), std::back_inserter(names));
        std::stable_sort(names.begin(), names.end(), [](const Name& left, const Name& right) {
            return left.text < right.text;
        });
        const auto end =
            std::unique(names.begin(), names.end(), [](const Name& left, const Name& right) {
                return left.text == right.text;
            });
        names.erase(end, names.end());
        names.shrink_to_fit();
        for (const Name& name : names) {
            target_.longestName_ = std::max(target_.longestName_, name.text.size());
        }
    }

    TimeZonePlaces& target_;
    const icu::Locale& reader_;
    CountryNames countriesForReader_;
    CountryNames countriesInEnglish_;
    UnitTable units_;
    std::map<const TimeZones::Zone*, std::uint16_t> cities_;
    std::vector<Name> plainNames_;
};

TimeZonePlaces::TimeZonePlaces(const icu::Locale& reader, std::string_view localZone)
    : zones_(reader, localZone) {
    Collector(*this, reader).collect();
}

const TimeZonePlaces::Name* TimeZonePlaces::find(std::string_view name) const {
    if (name.empty() || name.size() > longestName_) {
        return nullptr;
    }
    const auto found = std::lower_bound(
        names_.begin(), names_.end(), name,
        [](const Name& each, std::string_view wanted) { return each.text < wanted; });
    return found != names_.end() && found->text == name ? &*found : nullptr;
}

} // namespace pello
