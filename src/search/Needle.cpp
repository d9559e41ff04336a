#include "search/Needle.h"

#include "search/PresenceMask.h"
#include "search/TextPreparer.h"

namespace pello {

Needle::Needle(const std::vector<std::string>& characters, const CharacterCodes& listCodes) {
    bytes.reserve(characters.size());
    codes.reserve(characters.size());
    patterns.reserve(characters.size());
    for (const std::string& character : characters) {
        codes.push_back(listCodes.find(character));
        bytes.push_back(characterByte(codes.back()));
        patterns.emplace_back(bytes.back());
        isAscii = isAscii && codes.back() < 0x80;
        isAbsent = isAbsent || codes.back() == CharacterCodes::kAbsent;
    }
    mask = PresenceMask::of(bytes);
}

} // namespace pello
