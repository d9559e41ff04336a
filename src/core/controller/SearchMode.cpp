#include "core/controller/SearchMode.h"

#include "base/Text.h"

#include <array>
#include <optional>

namespace pello {
namespace {

// The curly quotation marks are what input methods and smart punctuation make of the straight one.
constexpr std::array<std::string_view, 3> kWindowPrefixes = {"w\"", "w\u201C", "w\u201D"};
constexpr std::array<std::string_view, 3> kGlyphPrefixes = {":", "emoji ", "key "};

template <std::size_t Count>
std::optional<std::string> textAfter(const std::array<std::string_view, Count>& prefixes,
                                     std::string_view query) {
    for (const std::string_view prefix : prefixes) {
        if (query.starts_with(prefix)) {
            return std::string(text::trimmingBlanks(query.substr(prefix.size())));
        }
    }
    return std::nullopt;
}

} // namespace

SearchMode SearchMode::of(std::string_view query) {
    if (auto windowQuery = textAfter(kWindowPrefixes, query)) {
        return {.kind = Kind::windows, .text = std::move(*windowQuery)};
    }
    if (auto glyphQuery = textAfter(kGlyphPrefixes, query)) {
        return {.kind = Kind::glyphs, .text = std::move(*glyphQuery)};
    }
    return {.kind = Kind::normal, .text = std::string(query)};
}

} // namespace pello
