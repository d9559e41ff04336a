#include "answers/NumberFormatter.h"

#include "answers/IcuText.h"
#include "base/DecimalText.h"
#include "base/ReadersLocale.h"

#include <unicode/numberformatter.h>

#include <utility>

namespace pello {

struct NumberFormatter::Rules {
    icu::number::LocalizedNumberFormatter formatter;
};

NumberFormatter NumberFormatter::withFractionDigits(int most, std::string_view locale) {
    auto rules = std::make_unique<Rules>();
    rules->formatter = icu::number::NumberFormatter::withLocale(readersLocale(locale))
                           .precision(icu::number::Precision::maxFraction(most))
                           .roundingMode(UNUM_ROUND_HALFEVEN)
                           .sign(UNUM_SIGN_NEGATIVE);
    warm(rules->formatter);
    return NumberFormatter(std::move(rules));
}

NumberFormatter::NumberFormatter(std::unique_ptr<Rules> rules) : rules_(std::move(rules)) {}

NumberFormatter::~NumberFormatter() = default;
NumberFormatter::NumberFormatter(NumberFormatter&& other) noexcept = default;
NumberFormatter& NumberFormatter::operator=(NumberFormatter&& other) noexcept = default;

std::string NumberFormatter::text(double number) const {
    UErrorCode status = U_ZERO_ERROR;
    const auto formatted = rules_->formatter.formatDouble(number, status);
    const icu::UnicodeString wide = formatted.toString(status);
    return U_SUCCESS(status) != 0 ? utf8(wide) : decimalText(number);
}

} // namespace pello
