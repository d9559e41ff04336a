#include "base/Capitals.h"

#include "base/ReadersLocale.h"

#include <unicode/unistr.h>

namespace pello {

std::string capitalized(std::string_view utf8, std::string_view locale) {
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
    text.toTitle(nullptr, readersLocale(locale));
    std::string result;
    text.toUTF8String(result);
    return result;
}

} // namespace pello
