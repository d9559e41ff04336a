#pragma once

#include <unicode/numberformatter.h>
#include <unicode/unistr.h>

#include <string>

namespace pello {

/// `text` in UTF-8, as everything outside of ICU holds texts.
[[nodiscard]] inline std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

/// Makes `formatter` fast from its first text on: ICU prepares a formatter while it writes its
/// first ones, and keeps what it prepared from the third on.
inline void warm(const icu::number::LocalizedNumberFormatter& formatter) {
    for (int i = 0; i < 3; ++i) {
        UErrorCode status = U_ZERO_ERROR;
        formatter.formatDouble(1, status);
    }
}

} // namespace pello
