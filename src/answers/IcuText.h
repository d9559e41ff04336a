#pragma once

#include <unicode/unistr.h>

#include <string>

namespace pello {

/// `text` in UTF-8, as everything outside of ICU holds texts.
[[nodiscard]] inline std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

} // namespace pello
