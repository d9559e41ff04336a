#include "scripts/ScriptHeader.h"

#include "base/Text.h"

#include <algorithm>

namespace pello {
namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// How many bytes the character has that begins with `lead`; 1 for what begins none.
std::size_t lengthByLead(char lead) {
    const auto byte = static_cast<unsigned char>(lead);
    return byte >= 0xF0U ? 4 : byte >= 0xE0U ? 3 : byte >= 0xC0U ? 2 : 1;
}

/// `bytes` without a last character that is not complete.
std::string_view droppingCutCharacter(std::string_view bytes) {
    const auto lead = std::find_if_not(bytes.rbegin(), bytes.rend(), continuesCharacter);
    if (lead == bytes.rend()) {
        return bytes;
    }
    const auto present = static_cast<std::size_t>(lead - bytes.rbegin()) + 1;
    return present < lengthByLead(*lead) ? bytes.substr(0, bytes.size() - present) : bytes;
}

} // namespace

std::string_view scriptHeader(std::string_view firstBytes) {
    std::string_view header = firstBytes;
    if (header.size() >= kScriptHeaderBytes) {
        header = droppingCutCharacter(header.substr(0, kScriptHeaderBytes));
    }
    if (header.starts_with(kByteOrderMark)) {
        header.remove_prefix(kByteOrderMark.size());
    }
    return text::wellFormed(header) == header ? header : std::string_view();
}

} // namespace pello
