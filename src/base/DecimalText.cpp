#include "base/DecimalText.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <locale>
#include <sstream>

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
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double number = 0;
    stream >> number;
    if (stream.fail() || stream.peek() != std::istringstream::traits_type::eof() ||
        !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

} // namespace pello
