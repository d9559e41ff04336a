#include "base/Capitals.h"

#include "base/ReadersLocale.h"

#include <unicode/stringoptions.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace pello {
namespace {

/// Where the word ends that begins at `start`, with the white space behind it.
int32_t wordEnd(const icu::UnicodeString& text, int32_t start) {
    int32_t end = start;
    while (end < text.length() && !u_isUWhiteSpace(text.char32At(end))) {
        end = text.moveIndex32(end, 1);
    }
    while (end < text.length() && u_isUWhiteSpace(text.char32At(end))) {
        end = text.moveIndex32(end, 1);
    }
    return end;
}

icu::UnicodeString capitalizedWord(icu::UnicodeString word, const icu::Locale& reader) {
    int32_t letter = 0;
    while (letter < word.length() && !u_isalpha(word.char32At(letter))) {
        letter = word.moveIndex32(letter, 1);
    }
    icu::UnicodeString head = word.tempSubStringBetween(0, letter);
    icu::UnicodeString rest = word.tempSubStringBetween(letter);
    return head.append(rest.toTitle(nullptr, reader, U_TITLECASE_WHOLE_STRING));
}

} // namespace

std::string capitalized(std::string_view utf8, std::string_view locale) {
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
    const icu::Locale reader = readersLocale(locale);
    icu::UnicodeString capitals;
    for (int32_t start = 0; start < text.length();) {
        const int32_t end = wordEnd(text, start);
        capitals.append(capitalizedWord(text.tempSubStringBetween(start, end), reader));
        start = end;
    }
    text = capitals;
    std::string result;
    text.toUTF8String(result);
    return result;
}

} // namespace pello
