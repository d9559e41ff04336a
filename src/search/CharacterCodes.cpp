#include "search/CharacterCodes.h"

#include "base/Text.h"

namespace pello {
namespace {

constexpr char32_t kFirstNumber = 0x110000; // after the last scalar

bool isAscii(std::string_view character) {
    return character.size() == 1 && static_cast<unsigned char>(character[0]) < 0x80;
}

} // namespace

char32_t CharacterCodes::add(std::string_view character) {
    const char32_t known = find(character);
    if (known != kAbsent) {
        return known;
    }
    const auto code = static_cast<char32_t>(kFirstNumber + numbered_.size());
    numbered_.emplace(text::composed(character), code);
    return code;
}

char32_t CharacterCodes::find(std::string_view character) const {
    if (isAscii(character)) {
        return static_cast<unsigned char>(character[0]);
    }
    if (const auto scalar = text::composedScalar(character)) {
        return *scalar;
    }
    const auto found = numbered_.find(text::composed(character));
    return found == numbered_.end() ? kAbsent : found->second;
}

std::size_t CharacterCodes::footprint() const {
    constexpr std::size_t kNode = 4 * sizeof(void*) + sizeof(decltype(numbered_)::value_type);
    return numbered_.size() * kNode;
}

} // namespace pello
