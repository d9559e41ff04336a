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
    if (byte < 0xC0U) {
        return 1;
    }
    if (byte < 0xE0U) {
        return 2;
    }
    return byte < 0xF0U ? 3 : 4;
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

ScriptHeaderValues ScriptHeaderValues::of(std::string_view header) {
    ScriptHeaderValues values;
    for (const std::string_view whole : text::lines(header)) {
        std::string_view line = text::trimmingBlanks(whole);
        if (line.empty() || line.starts_with("#!")) {
            continue;
        }
        if (!line.starts_with('#')) {
            break;
        }
        line.remove_prefix(std::min(line.find_first_not_of('#'), line.size()));
        values.readComment(text::trimmingBlanks(line));
    }
    return values;
}

/// Notes what a comment says, without its "#"s, if it is one of ours.
void ScriptHeaderValues::readComment(std::string_view comment) {
    constexpr std::string_view kMark = "pello.";
    const auto colon = comment.find(':');
    if (colon == std::string_view::npos || !text::lowercased(comment).starts_with(kMark)) {
        return;
    }
    const auto key = text::trimmingBlanks(comment.substr(kMark.size(), colon - kMark.size()));
    const auto value = text::trimmingBlanks(comment.substr(colon + 1));
    if (!value.empty()) {
        values_.insert_or_assign(text::lowercased(key), std::string(value));
    }
}

std::optional<std::string> ScriptHeaderValues::value(std::string_view key) const {
    const auto found = values_.find(key);
    return found != values_.end() ? std::optional(found->second) : std::nullopt;
}

} // namespace pello
