#include "base/DecimalText.h"

#include <nlohmann/json.hpp>
#include <unicode/fmtable.h>

#include <cmath>

namespace pello {

std::string decimalText(double number) {
    // The C library's printing follows the locale's decimal comma, and to_chars for real numbers
    // is newer than some systems this runs on.
    return nlohmann::json(number).dump();
}

std::optional<double> parseDecimal(std::string_view text) {
    if (text.empty() || text.find_first_not_of("0123456789.+-eE") != std::string_view::npos) {
        return std::nullopt;
    }
    // The C library reads by the process's locale, streams stop after some forty digits in one
    // standard library, and from_chars for real numbers is not in all of them.
    UErrorCode status = U_ZERO_ERROR;
    icu::Formattable formattable;
    formattable.setDecimalNumber({text.data(), static_cast<int32_t>(text.size())}, status);
    const double number = formattable.getDouble(status);
    return U_SUCCESS(status) != 0 && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

} // namespace pello
