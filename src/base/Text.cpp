#include "base/Text.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

namespace pello::text {
namespace {

struct Scalar {
    UChar32 value;
    std::size_t begin;
    std::size_t end;
};

// ICU's decoding macros narrow and cast in ways that the house's warnings refuse.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wold-style-cast"

// NOLINTBEGIN(bugprone-inc-dec-in-conditions, readability-simplify-subscript-expr): ICU's macros

/// The scalar that begins at `offset`; malformed bytes give U+FFFD.
Scalar scalarAt(std::string_view utf8, std::size_t offset) {
    auto index = static_cast<int32_t>(offset);
    UChar32 value = 0;
    U8_NEXT_OR_FFFD(utf8.data(), index, static_cast<int32_t>(utf8.size()), value);
    return {.value = value, .begin = offset, .end = static_cast<std::size_t>(index)};
}

/// The scalar that ends at `offset`.
Scalar scalarBefore(std::string_view utf8, std::size_t offset) {
    auto index = static_cast<int32_t>(offset);
    UChar32 value = 0;
    U8_PREV_OR_FFFD(utf8.data(), 0, index, value);
    return {.value = value, .begin = static_cast<std::size_t>(index), .end = offset};
}

// NOLINTEND(bugprone-inc-dec-in-conditions, readability-simplify-subscript-expr)
#pragma GCC diagnostic pop

template <class Predicate>
std::string_view trimming(std::string_view utf8, Predicate isTrimmed) {
    std::size_t begin = 0;
    while (begin < utf8.size()) {
        const Scalar scalar = scalarAt(utf8, begin);
        if (!isTrimmed(scalar.value)) {
            break;
        }
        begin = scalar.end;
    }
    std::size_t end = utf8.size();
    while (end > begin) {
        const Scalar scalar = scalarBefore(utf8, end);
        if (!isTrimmed(scalar.value)) {
            break;
        }
        end = scalar.begin;
    }
    return utf8.substr(begin, end - begin);
}

bool isBlankScalar(UChar32 scalar) {
    return scalar == '\t' || u_charType(scalar) == U_SPACE_SEPARATOR;
}

bool isWhitespaceScalar(UChar32 scalar) {
    return u_isUWhiteSpace(scalar) != 0;
}

bool isAscii(std::string_view utf8) {
    return std::all_of(utf8.begin(), utf8.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// Whether the scalar is no part of a longer character, whatever stands beside it, as long as that
/// is such a scalar too: no combining mark, joiner, jamo, prefix, regional indicator or line end.
bool standsAlone(UChar32 scalar) {
    struct Block {
        UChar32 first;
        UChar32 last;
    };
    constexpr std::array<Block, 9> kBlocks = {{{0x0000, 0x02FF},   // Latin
                                               {0x0370, 0x0482},   // Greek, Cyrillic
                                               {0x048A, 0x0590},   // Cyrillic, Armenian
                                               {0x1E00, 0x200A},   // Latin, Greek, spaces
                                               {0x2010, 0x2027},   // punctuation
                                               {0x3041, 0x3096},   // Hiragana
                                               {0x309B, 0x30FF},   // Katakana
                                               {0x3400, 0x9FFF},   // Han
                                               {0xAC00, 0xD7A3}}}; // Hangul syllables
    return scalar != '\r' && std::any_of(kBlocks.begin(), kBlocks.end(), [&](Block block) {
               return scalar >= block.first && scalar <= block.last;
           });
}

/// A breaker of this thread; making one costs far more than a split.
icu::BreakIterator* threadBreaker() {
    thread_local const std::unique_ptr<icu::BreakIterator> breaker = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    return breaker.get();
}

template <class Visit>
void forEachScalar(std::string_view utf8, Visit visit) {
    for (std::size_t i = 0; i < utf8.size();) {
        const Scalar scalar = scalarAt(utf8, i);
        visit(scalar.begin, scalar.end);
        i = scalar.end;
    }
}

bool allStandAlone(std::string_view utf8) {
    for (std::size_t i = 0; i < utf8.size();) {
        const Scalar scalar = scalarAt(utf8, i);
        if (!standsAlone(scalar.value)) {
            return false;
        }
        i = scalar.end;
    }
    return true;
}

/// Calls `visit(begin, end)` with the byte range of each character.
template <class Visit>
void forEachCharacter(std::string_view utf8, Visit visit) {
    if (hasOnlySingleByteCharacters(utf8)) {
        for (std::size_t i = 0; i < utf8.size(); ++i) {
            visit(i, i + 1);
        }
        return;
    }
    if (allStandAlone(utf8)) {
        forEachScalar(utf8, visit);
        return;
    }
    UErrorCode status = U_ZERO_ERROR;
    UText text = UTEXT_INITIALIZER;
    utext_openUTF8(&text, utf8.data(), static_cast<int64_t>(utf8.size()), &status);
    icu::BreakIterator* breaker = threadBreaker();
    if (breaker != nullptr) {
        breaker->setText(&text, status);
    }
    if (breaker == nullptr || U_FAILURE(status) != 0) { // no Unicode data: scalars will have to do
        forEachScalar(utf8, visit);
        utext_close(&text);
        return;
    }
    auto begin = static_cast<std::size_t>(breaker->first());
    for (int32_t next = breaker->next(); next != icu::BreakIterator::DONE; next = breaker->next()) {
        const auto end = static_cast<std::size_t>(next);
        visit(begin, end);
        begin = end;
    }
    utext_close(&text);
}

using CaseMapper = void (*)(const char* locale, uint32_t options, icu::StringPiece source,
                            icu::ByteSink& sink, icu::Edits* edits, UErrorCode& status);

std::string mapped(std::string_view utf8, CaseMapper mapper) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<int32_t>(utf8.size()));
    UErrorCode status = U_ZERO_ERROR;
    const icu::StringPiece source(utf8.data(), static_cast<int32_t>(utf8.size()));
    mapper("", 0, source, sink, nullptr, status);
    return U_SUCCESS(status) != 0 ? result : std::string(utf8);
}

bool isSingleScalar(std::string_view character) {
    return !character.empty() && scalarAt(character, 0).end == character.size();
}

UChar32 firstScalar(std::string_view character) {
    return character.empty() ? 0 : scalarAt(character, 0).value;
}

/// Whether composed form leaves the scalar as it is when it stands alone.
bool isComposed(UChar32 scalar) {
    return u_getIntPropertyValue(scalar, UCHAR_NFC_QUICK_CHECK) != UNORM_NO;
}

/// The pieces of `utf8` between the characters that `separates`, empty ones left out.
template <class Predicate>
std::vector<std::string_view> piecesBetween(std::string_view utf8, const Predicate& separates) {
    std::vector<std::string_view> pieces;
    std::size_t begin = 0;
    const auto endAt = [&](std::size_t end) {
        if (end > begin) {
            pieces.push_back(utf8.substr(begin, end - begin));
        }
    };
    forEachCharacter(utf8, [&](std::size_t from, std::size_t to) {
        if (separates(utf8.substr(from, to - from))) {
            endAt(from);
            begin = to;
        }
    });
    endAt(utf8.size());
    return pieces;
}

} // namespace

std::vector<std::string_view> characterViews(std::string_view utf8) {
    std::vector<std::string_view> result;
    result.reserve(utf8.size());
    forEachCharacter(utf8, [&](std::size_t begin, std::size_t end) {
        result.push_back(utf8.substr(begin, end - begin));
    });
    return result;
}

std::vector<std::string> characters(std::string_view utf8) {
    const auto views = characterViews(utf8);
    return {views.begin(), views.end()};
}

std::size_t characterCount(std::string_view utf8) {
    std::size_t count = 0;
    forEachCharacter(utf8, [&](std::size_t, std::size_t) { ++count; });
    return count;
}

bool hasOnlySingleByteCharacters(std::string_view utf8) {
    return isAscii(utf8) && utf8.find('\r') == std::string_view::npos;
}

std::optional<char32_t> composedScalar(std::string_view character) {
    if (isSingleScalar(character) && isComposed(firstScalar(character))) {
        return static_cast<char32_t>(firstScalar(character));
    }
    const std::string whole = composed(character);
    if (!isSingleScalar(whole)) {
        return std::nullopt;
    }
    return static_cast<char32_t>(firstScalar(whole));
}

std::string_view droppingFirst(std::string_view utf8, std::size_t count) {
    std::size_t seen = 0;
    std::size_t rest = utf8.size();
    forEachCharacter(utf8, [&](std::size_t begin, std::size_t) {
        if (seen++ == count) {
            rest = begin;
        }
    });
    return utf8.substr(rest);
}

std::string lowercased(std::string_view utf8) {
    if (isAscii(utf8)) {
        std::string result(utf8);
        std::transform(result.begin(), result.end(), result.begin(), [](char byte) {
            return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
        });
        return result;
    }
    return mapped(utf8, icu::CaseMap::utf8ToLower);
}

std::string uppercased(std::string_view utf8) {
    return mapped(utf8, icu::CaseMap::utf8ToUpper);
}

std::string composed(std::string_view utf8) {
    if (isAscii(utf8)) {
        return std::string(utf8);
    }
    const std::string source = wellFormed(utf8);
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<int32_t>(source.size()));
    if (U_SUCCESS(status) != 0) {
        composer->normalizeUTF8(0, {source.data(), static_cast<int32_t>(source.size())}, sink,
                                nullptr, status);
    }
    return U_SUCCESS(status) != 0 ? result : source;
}

bool isSameCharacter(std::string_view left, std::string_view right) {
    return left == right || composed(left) == composed(right);
}

std::string_view trimmingBlanks(std::string_view utf8) {
    return trimming(utf8, isBlankScalar);
}

std::string_view trimmingWhitespaceAndControls(std::string_view utf8) {
    return trimming(utf8, [](UChar32 scalar) {
        const auto category = u_charType(scalar);
        return isWhitespaceScalar(scalar) || category == U_CONTROL_CHAR ||
               category == U_FORMAT_CHAR;
    });
}

bool isBlank(std::string_view utf8) {
    return trimmingBlanks(utf8).empty();
}

std::string droppingWhitespace(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    forEachCharacter(utf8, [&](std::size_t begin, std::size_t end) {
        const auto character = utf8.substr(begin, end - begin);
        if (!isWhitespace(character)) {
            result += character;
        }
    });
    return result;
}

bool isLowercase(std::string_view character) {
    if (isSingleScalar(character)) {
        return u_isULowercase(firstScalar(character)) != 0;
    }
    return !character.empty() && lowercased(character) == character &&
           uppercased(character) != character;
}

bool isUppercase(std::string_view character) {
    if (isSingleScalar(character)) {
        return u_isUUppercase(firstScalar(character)) != 0;
    }
    return !character.empty() && uppercased(character) == character &&
           lowercased(character) != character;
}

bool isLetter(std::string_view character) {
    return u_isUAlphabetic(firstScalar(character)) != 0;
}

bool isNumber(std::string_view character) {
    return u_getIntPropertyValue(firstScalar(character), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

bool isWhitespace(std::string_view character) {
    for (std::size_t i = 0; i < character.size();) {
        const Scalar scalar = scalarAt(character, i);
        if (!isWhitespaceScalar(scalar.value)) {
            return false;
        }
        i = scalar.end;
    }
    return !character.empty();
}

bool isShownAsEmoji(std::string_view utf8) {
    constexpr std::string_view kEmojiStyle = "\uFE0F";
    const auto first = firstScalar(utf8);
    return utf8.find(kEmojiStyle) != std::string_view::npos ||
           u_hasBinaryProperty(first, UCHAR_EMOJI_PRESENTATION) != 0;
}

bool containsWhitespace(std::string_view utf8) {
    bool found = false;
    forEachCharacter(utf8, [&](std::size_t begin, std::size_t end) {
        found = found || isWhitespace(utf8.substr(begin, end - begin));
    });
    return found;
}

bool containsLetterOrNumber(std::string_view utf8) {
    bool found = false;
    forEachCharacter(utf8, [&](std::size_t begin, std::size_t end) {
        const auto character = utf8.substr(begin, end - begin);
        found = found || isLetter(character) || isNumber(character);
    });
    return found;
}

std::vector<std::string_view> split(std::string_view utf8, char separator) {
    std::vector<std::string_view> pieces;
    while (!utf8.empty()) {
        const std::size_t end = utf8.find(separator);
        if (end != 0) {
            pieces.push_back(utf8.substr(0, end));
        }
        utf8.remove_prefix(end == std::string_view::npos ? utf8.size() : end + 1);
    }
    return pieces;
}

std::vector<std::string_view> words(std::string_view utf8) {
    return piecesBetween(utf8, isWhitespace);
}

std::vector<std::string_view> lines(std::string_view utf8) {
    return piecesBetween(utf8, [](std::string_view character) {
        const UChar32 first = scalarAt(character, 0).value;
        return (first >= '\n' && first <= '\r') || first == 0x85 || first == 0x2028 ||
               first == 0x2029;
    });
}

bool isDottedName(std::string_view utf8) {
    for (std::size_t i = 0; i < utf8.size();) {
        const Scalar scalar = scalarAt(utf8, i);
        const auto category = u_charType(scalar.value);
        if (category != U_LOWERCASE_LETTER && category != U_DECIMAL_DIGIT_NUMBER &&
            scalar.value != '.') {
            return false;
        }
        i = scalar.end;
    }
    return true;
}

std::string wellFormed(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const Scalar scalar = scalarAt(utf8, i);
        if (scalar.value == 0xFFFD) {
            result += "\xEF\xBF\xBD";
        } else {
            result += utf8.substr(scalar.begin, scalar.end - scalar.begin);
        }
        i = scalar.end;
    }
    return result;
}

} // namespace pello::text
