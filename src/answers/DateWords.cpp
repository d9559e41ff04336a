#include "answers/DateWords.h"

#include "answers/IcuText.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace pello {
namespace {

constexpr std::size_t kMostBytes = 200;

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool isLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || !isAscii(byte);
}

bool isBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

/// The ASCII character that stands for `scalar` in dates, or the scalar; 0 for one without meaning.
UChar32 plainScalar(UChar32 scalar) {
    switch (scalar) {
    case 0x2018: // quotation marks that serve as an apostrophe
    case 0x2019:
    case 0x02BC:
        return '\'';
    case 0x2012: // dashes, and the sign for less
    case 0x2013:
    case 0x2212:
        return '-';
    case 0x060C: // the Arabic comma
        return ',';
    case 0x200E: // marks of the direction of writing
    case 0x200F:
    case 0x061C:
        return 0;
    default:
        break;
    }
    if (u_isUWhiteSpace(scalar) != 0) {
        return ' ';
    }
    const int32_t digit = u_charDigitValue(scalar);
    return digit >= 0 ? '0' + digit : scalar;
}

/// `text` in composed form, with the ASCII characters that stand for what it has.
std::string plainText(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto given = icu::UnicodeString::fromUTF8(std::string(text));
    const icu::UnicodeString composed =
        icu::Normalizer2::getNFCInstance(status)->normalize(given, status);
    icu::UnicodeString plain;
    for (int32_t i = 0; i < composed.length(); i = composed.moveIndex32(i, 1)) {
        if (const UChar32 scalar = plainScalar(composed.char32At(i)); scalar != 0) {
            plain.append(scalar);
        }
    }
    return utf8(plain);
}

std::size_t endOfNumber(std::string_view text, std::size_t from) {
    return std::min(text.find_first_not_of("0123456789", from), text.size());
}

/// An apostrophe belongs to the letter before or after it; feet have one, too.
bool isOfWord(std::string_view text, std::size_t at) {
    if (text[at] != '\'') {
        return isLetter(text[at]);
    }
    return (at > 0 && isLetter(text[at - 1])) || (at + 1 < text.size() && isLetter(text[at + 1]));
}

std::size_t endOfWord(std::string_view text, std::size_t from) {
    while (from < text.size() && isOfWord(text, from)) {
        ++from;
    }
    return from;
}

} // namespace

DateWords::DateWords(std::string_view text) {
    if (text.size() > kMostBytes) {
        return;
    }
    const bool isPlain = std::all_of(text.begin(), text.end(), isAscii);
    if (!takeApart(isPlain ? text : plainText(text))) {
        count_ = 0;
    }
}

bool DateWords::takeApart(std::string_view text) {
    plain_.reserve(text.size() + kMostPieces);
    bool isGlued = false;
    for (std::size_t i = 0; i < text.size();) {
        if (isBlank(text[i])) {
            isGlued = false;
            ++i;
            continue;
        }
        if (!begin(text[i], isGlued)) {
            return false;
        }
        std::size_t end = i + 1;
        if (isDigit(text[i])) {
            end = endOfNumber(text, i);
            plain_.append(text.substr(i, end - i));
        } else if (isOfWord(text, i)) {
            end = endOfWord(text, i);
            addWord(text.substr(i, end - i));
            if (end < text.size() && text[end] == '.') {
                ++end;
            }
        } else {
            plain_.push_back(text[i]);
        }
        pieces_[count_++].end = plain_.size();
        isGlued = true;
        i = end;
    }
    return true;
}

/// Whether there may be a piece that begins so.
bool DateWords::begin(char first, bool isGlued) {
    const bool followsLetter = isGlued && isAscii(plain_.back()) && isLetter(plain_.back());
    if (count_ == kMostPieces || (followsLetter && (isDigit(first) || isLetter(first)))) {
        return false;
    }
    if (count_ > 0) {
        plain_.push_back(' ');
    }
    pieces_[count_] = {.begin = plain_.size(), .isGlued = isGlued, .isNumber = isDigit(first)};
    return true;
}

void DateWords::addWord(std::string_view text) {
    std::copy_if(text.begin(), text.end(), std::back_inserter(plain_),
                 [](char byte) { return byte != '\''; });
}

std::size_t DateWords::digits(std::size_t at) const {
    return at < count_ && pieces_[at].isNumber ? pieces_[at].end - pieces_[at].begin : 0;
}

std::optional<int> DateWords::number(std::size_t at, std::size_t fewest, std::size_t most) const {
    constexpr std::size_t kMostDigits = 9;
    const std::size_t length = digits(at);
    if (length == 0 || length < fewest || length > std::min(most, kMostDigits)) {
        return std::nullopt;
    }
    int value = 0;
    for (const char digit : text(at)) {
        value = (10 * value) + (digit - '0');
    }
    return value;
}

std::string_view DateWords::phrase(std::size_t first, std::size_t last) const {
    if (first >= last || last > count_) {
        return {};
    }
    const std::size_t begin = pieces_[first].begin;
    return std::string_view(plain_).substr(begin, pieces_[last - 1].end - begin);
}

} // namespace pello
