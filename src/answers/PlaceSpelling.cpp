#include "answers/PlaceSpelling.h"

#include "answers/IcuText.h"
#include "base/Text.h"

#include <unicode/normalizer2.h>

#include <algorithm>

namespace pello {
namespace {

/// What a letter or a sign reads as without what a plain keyboard lacks; null when it stays.
const char16_t* plainLetter(UChar32 scalar) {
    switch (scalar) {
    case U'.':
    case U',':
    case U'\'':
    case U'\u2018':
    case U'\u2019':
    case U'\u00AD': // soft hyphen
    case U'\u200C': // joiners
    case U'\u200D':
    case U'\u200E': // marks of direction
    case U'\u200F':
    case U'\u02BB': // the letter of "Nukuʻalofa"
        return u"";
    case U'-':
    case U'_':
    case U'\u2010':
    case U'\u2013':
        return u" ";
    case U'&':
        return u"and";
    case U'ß':
        return u"ss";
    case U'æ':
        return u"ae";
    case U'œ':
        return u"oe";
    case U'ø':
        return u"o";
    case U'ł':
        return u"l";
    case U'đ':
    case U'ð':
        return u"d";
    case U'þ':
        return u"th";
    case U'ı':
        return u"i";
    default:
        return nullptr;
    }
}

bool isAccent(UChar32 scalar) {
    return scalar >= 0x300 && scalar <= 0x36F;
}

bool isPlainAlready(std::string_view name) {
    return std::all_of(name.begin(), name.end(), [](char byte) {
        return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == ' ';
    });
}

std::string withSingleSpaces(std::string_view name) {
    std::string result;
    for (const std::string_view word : text::split(name, ' ')) {
        result.append(result.empty() ? "" : " ").append(word);
    }
    return result;
}

} // namespace

std::string plainSpelling(std::string_view name) {
    if (isPlainAlready(name)) {
        return std::string(name);
    }
    UErrorCode status = U_ZERO_ERROR;
    const auto* decomposing = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status) != 0) {
        return std::string(name);
    }
    const icu::StringPiece piece(name.data(), static_cast<int32_t>(name.size()));
    const auto parts = decomposing->normalize(icu::UnicodeString::fromUTF8(piece), status);
    icu::UnicodeString plain;
    for (int32_t i = 0; i < parts.length(); i = parts.moveIndex32(i, 1)) {
        const UChar32 scalar = parts.char32At(i);
        if (const char16_t* letter = plainLetter(scalar)) {
            plain.append(icu::UnicodeString(letter));
        } else if (!isAccent(scalar)) {
            plain.append(scalar);
        }
    }
    return withSingleSpaces(text::composed(utf8(plain)));
}

} // namespace pello
