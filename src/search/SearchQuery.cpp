#include "search/SearchQuery.h"

#include "base/Text.h"

#include <algorithm>

namespace pello {
namespace {

/// FNV-1a.
class Hash {
public:
    void add(unsigned char byte) { value_ = (value_ ^ byte) * 16777619U; }
    void add(std::string_view bytes) {
        for (const char byte : bytes) {
            add(static_cast<unsigned char>(byte));
        }
    }
    [[nodiscard]] std::uint32_t value() const { return value_; }

private:
    std::uint32_t value_ = 2166136261U;
};

std::uint32_t hashOf(const std::vector<std::string>& characters) {
    Hash hash;
    for (const std::string& character : characters) {
        hash.add(text::composed(character));
    }
    return hash.value();
}

} // namespace

SearchQuery::SearchQuery(std::string_view typed)
    : trimmed(text::trimmingBlanks(typed)),
      needle(bareCharacters(trimmed)),
      needleHash(hashOf(needle)),
      allowsCombined(text::containsWhitespace(trimmed)) {}

bool SearchQuery::isExactly(std::string_view keyword) const {
    const auto characters = bareCharacters(keyword);
    return std::equal(characters.begin(), characters.end(), needle.begin(), needle.end(),
                      text::isSameCharacter);
}

std::vector<std::string> bareCharacters(std::string_view text) {
    return text::characters(text::droppingWhitespace(text::lowercased(text)));
}

std::uint32_t bareHash(std::string_view text) {
    if (!text::hasOnlySingleByteCharacters(text)) {
        return hashOf(bareCharacters(text));
    }
    Hash hash;
    for (const char byte : text) {
        const bool isSpace = byte == ' ' || (byte >= '\t' && byte <= '\r');
        const bool isUpper = byte >= 'A' && byte <= 'Z';
        if (!isSpace) {
            hash.add(static_cast<unsigned char>(isUpper ? byte + ('a' - 'A') : byte));
        }
    }
    return hash.value();
}

} // namespace pello
