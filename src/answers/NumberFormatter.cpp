#include "answers/NumberFormatter.h"

#include "answers/IcuText.h"
#include "base/DecimalText.h"
#include "base/ReadersLocale.h"

#include <unicode/dcfmtsym.h>
#include <unicode/numberformatter.h>

#include <utility>

namespace pello {

struct NumberFormatter::Rules {
    icu::number::LocalizedNumberFormatter formatter;
    std::string decimalSeparator = ".";
    std::string groupingSeparator = ",";
};

namespace {

using icu::DecimalFormatSymbols;
using icu::number::Precision;

std::unique_ptr<NumberFormatter::Rules> rulesOf(const Precision& precision,
                                                std::string_view localeName) {
    const icu::Locale locale = readersLocale(localeName);
    auto rules = std::make_unique<NumberFormatter::Rules>();
    rules->formatter = icu::number::NumberFormatter::withLocale(locale)
                           .precision(precision)
                           .roundingMode(UNUM_ROUND_HALFEVEN)
                           .grouping(UNUM_GROUPING_AUTO)
                           .sign(UNUM_SIGN_NEGATIVE);
    warm(rules->formatter);
    UErrorCode status = U_ZERO_ERROR;
    const DecimalFormatSymbols symbols(locale, status);
    if (U_SUCCESS(status) != 0) {
        rules->decimalSeparator =
            utf8(symbols.getConstSymbol(DecimalFormatSymbols::kDecimalSeparatorSymbol));
        rules->groupingSeparator =
            utf8(symbols.getConstSymbol(DecimalFormatSymbols::kGroupingSeparatorSymbol));
    }
    return rules;
}

} // namespace

NumberFormatter NumberFormatter::withFractionDigits(int most, std::string_view locale) {
    return NumberFormatter(rulesOf(Precision::maxFraction(most), locale));
}

NumberFormatter NumberFormatter::withSignificantDigits(int most, std::string_view locale) {
    return NumberFormatter(rulesOf(Precision::maxSignificantDigits(most), locale));
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

const std::string& NumberFormatter::decimalSeparator() const {
    return rules_->decimalSeparator;
}

const std::string& NumberFormatter::groupingSeparator() const {
    return rules_->groupingSeparator;
}

} // namespace pello
