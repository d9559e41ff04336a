#include "search/TextPreparer.h"

#include "base/Text.h"
#include "search/BoundaryBonuses.h"

#include <algorithm>

namespace pello {
namespace {

std::uint8_t lowercasedByte(char byte) {
    return static_cast<std::uint8_t>(byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte);
}

} // namespace

void prepareText(std::string_view text, CharacterCodes& codes, PreparedText& prepared) {
    prepared.bytes.clear();
    prepared.codes.clear();
    boundaryBonuses(text, prepared.bonuses);
    if (text::hasOnlySingleByteCharacters(text)) {
        prepared.bytes.resize(text.size());
        std::transform(text.begin(), text.end(), prepared.bytes.begin(), lowercasedByte);
        return;
    }
    bool isAscii = true;
    const std::string lowered = text::lowercased(text);
    const auto characters = text::characterViews(lowered);
    for (const auto character : characters) {
        prepared.codes.push_back(codes.add(character));
        prepared.bytes.push_back(characterByte(prepared.codes.back()));
        isAscii = isAscii && prepared.codes.back() < 0x80;
    }
    if (isAscii) { // a Kelvin sign is a plain k now
        prepared.codes.clear();
    }
    prepared.bonuses.resize(prepared.bytes.size()); // lower-casing may split a character
}

} // namespace pello
