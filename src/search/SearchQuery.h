#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// A query as typed, and what the search makes of it once per keystroke.
struct SearchQuery {
    explicit SearchQuery(std::string_view typed);

    /// Without blanks at the ends, in the typed case. Views the text that was passed in.
    std::string_view trimmed;
    /// The characters to find, in order: lower case, no white space.
    std::vector<std::string> needle;
    /// What keywords are looked up by: equal for characters that are the same to a reader.
    std::uint32_t needleHash = 0;
    /// Several words may be spread over an item's title and keywords.
    bool allowsCombined = false;

    /// Nothing was typed but blanks.
    [[nodiscard]] bool isBlank() const { return trimmed.empty(); }

    /// Whether `keyword` is the query, white space and case aside.
    [[nodiscard]] bool isExactly(std::string_view keyword) const;
};

/// The characters that decide whether a keyword is the query: lower case, no white space.
[[nodiscard]] std::vector<std::string> bareCharacters(std::string_view text);

/// The hash of a text's bare characters, see `SearchQuery::needleHash`.
[[nodiscard]] std::uint32_t bareHash(std::string_view text);

} // namespace pello
