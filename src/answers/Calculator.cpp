#include "answers/Calculator.h"

#include "answers/ArithmeticParser.h"
#include "base/Text.h"

#include <cmath>

namespace pello {
namespace {

constexpr std::size_t kFewestCharacters = 3;
constexpr double kIntegersBelow = 1e15;

/// Whether `query` could compute something; most queries are turned away here, unread.
bool mentionsArithmetic(std::string_view query) {
    return query.find_first_of("+-*/^%") != std::string_view::npos ||
           query.find("×") != std::string_view::npos || query.find("÷") != std::string_view::npos ||
           text::lowercased(query).find("sqrt") != std::string::npos;
}

} // namespace

Calculator::Calculator(std::string_view locale)
    : integerFormatter_(NumberFormatter::withFractionDigits(0, locale)),
      decimalFormatter_(NumberFormatter::withFractionDigits(10, locale)) {}

std::optional<std::string> Calculator::evaluate(std::string_view query) const {
    const std::string_view trimmed = text::trimmingBlanks(query);
    if (!mentionsArithmetic(trimmed) || text::characterCount(trimmed) < kFewestCharacters) {
        return std::nullopt;
    }
    const auto value = ArithmeticParser(trimmed).parse();
    return value && std::isfinite(*value) ? std::optional(format(*value)) : std::nullopt;
}

std::string Calculator::format(double value) const {
    const bool isInteger = value == std::round(value) && std::abs(value) < kIntegersBelow;
    return (isInteger ? integerFormatter_ : decimalFormatter_).text(value);
}

} // namespace pello
