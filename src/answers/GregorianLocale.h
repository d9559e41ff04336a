#pragma once

#include "base/ReadersLocale.h"

#include <unicode/locid.h>

#include <string_view>

namespace pello {

/// The locale called `name` (see ReadersLocale.h), with the Gregorian calendar instead of the one
/// that is usual there.
[[nodiscard]] inline icu::Locale gregorianLocale(std::string_view name) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale = readersLocale(name);
    locale.setKeywordValue("calendar", "gregorian", status);
    return locale;
}

} // namespace pello
