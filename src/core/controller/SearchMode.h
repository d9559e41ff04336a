#pragma once

#include <string>
#include <string_view>

namespace pello {

/// What a query searches, decided by how it begins.
struct SearchMode {
    enum class Kind {
        /// Everything in the catalogue.
        normal,
        /// The windows of running applications, after w and a double quotation mark.
        windows,
        /// Emoji and keyboard symbols, after ":", "emoji " or "key ".
        glyphs
    };

    Kind kind = Kind::normal;
    /// What is searched for: after the prefix and trimmed, or the whole query as typed.
    std::string text;

    [[nodiscard]] static SearchMode of(std::string_view query);

    friend bool operator==(const SearchMode&, const SearchMode&) = default;
};

} // namespace pello
