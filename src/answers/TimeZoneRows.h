#pragma once

#include <span>
#include <string_view>

/// What is known of places beyond what ICU names. The texts live as long as the program.
namespace pello::TimeZoneRows {

/// Cities and regions whose clocks follow one zone.
struct Cities {
    std::string_view zone;
    /// "City=other name=other name|City": the first name is shown. An empty first name stands for
    /// the city that ICU names for the zone.
    std::string_view names;
};

/// A short name of a zone or of a region's time.
struct Abbreviation {
    std::string_view names;
    /// Empty for UTC.
    std::string_view zone;
    /// ICU's metazone by whose name it is shown; empty for the name of the zone's country. Of UTC
    /// the text itself.
    std::string_view shown;
};

/// A country with more names than ICU's, or with several zones of which one is meant.
struct Country {
    /// ISO 3166.
    std::string_view region;
    /// Empty when it has one zone only.
    std::string_view zone;
    std::string_view names;
};

[[nodiscard]] std::span<const Cities> cities();
[[nodiscard]] std::span<const Abbreviation> abbreviations();
[[nodiscard]] std::span<const Country> countries();

/// Whether a place's `name` (in its plain spelling) is an ordinary word too, so that only "time in
/// NAME" and "3pm NAME" mean the place: "cat time" does not.
[[nodiscard]] bool isPlainWord(std::string_view name);

/// Whether ICU's name of `zone` is better left out.
[[nodiscard]] bool isMisleading(std::string_view zone);

} // namespace pello::TimeZoneRows
