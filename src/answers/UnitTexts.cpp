#include "answers/UnitTexts.h"

#include "answers/IcuText.h"
#include "base/ReadersLocale.h"

#include <unicode/dcfmtsym.h>
#include <unicode/formattedvalue.h>
#include <unicode/measfmt.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>
#include <unicode/uchar.h>

#include <cstddef>
#include <vector>

namespace pello {
namespace {

using icu::number::LocalizedNumberFormatter;

constexpr int32_t kMostDigits = 6;

/// A number of which every language uses a plural.
constexpr double kMany = 100;

LocalizedNumberFormatter numbersOf(const icu::Locale& locale) {
    return icu::number::NumberFormatter::withLocale(locale)
        .precision(icu::number::Precision::maxSignificantDigits(kMostDigits))
        .roundingMode(UNUM_ROUND_HALFEVEN);
}

icu::MeasureUnit measureUnit(const Unit& unit) {
    UErrorCode status = U_ZERO_ERROR;
    const std::string name(unit.identifier);
    auto found = icu::MeasureUnit::forIdentifier(name, status);
    if (U_FAILURE(status) != 0 && unit.identifier == "tonne") { // as ICU 71 and earlier called it
        status = U_ZERO_ERROR;
        found = icu::MeasureUnit::forIdentifier("metric-ton", status);
    }
    return found;
}

/// A quantity as a locale writes it.
struct Written {
    icu::UnicodeString text;
    /// Where the unit stands in it.
    int32_t unitBegin = 0;
    int32_t unitEnd = 0;
    bool showsNumber = false;
};

/// Empty when ICU has no data for it.
Written written(const LocalizedNumberFormatter& format, double value) {
    UErrorCode status = U_ZERO_ERROR;
    const auto formatted = format.formatDouble(value, status);
    Written result{.text = formatted.toString(status)};
    icu::ConstrainedFieldPosition field;
    field.constrainCategory(UFIELD_CATEGORY_NUMBER);
    while (formatted.nextPosition(field, status) != 0) {
        if (field.getField() == UNUM_INTEGER_FIELD) {
            result.showsNumber = true;
        } else if (field.getField() == UNUM_MEASURE_UNIT_FIELD) {
            result.unitBegin = field.getStart();
            result.unitEnd = field.getLimit();
        }
    }
    return U_SUCCESS(status) != 0 ? result : Written{};
}

/// How the short text of a unit is made.
enum class Brief { symbol, spacedNarrowSymbol, spelledOut };

/// The texts of one unit.
struct UnitFormat {
    LocalizedNumberFormatter brief;
    LocalizedNumberFormatter full;
    std::string name;
    Brief briefStyle = Brief::symbol;
};

UnitFormat unitFormat(const Unit& unit, const LocalizedNumberFormatter& numbers,
                      const icu::MeasureFormat& names) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::MeasureUnit measured = measureUnit(unit);
    const auto inUnit = numbers.unit(measured);
    UnitFormat result{.brief = inUnit.unitWidth(UNUM_UNIT_WIDTH_SHORT),
                      .full = inUnit.unitWidth(UNUM_UNIT_WIDTH_FULL_NAME),
                      .name = utf8(names.getUnitDisplayName(measured, status))};
    if (unit.identifier == "day" || unit.identifier == "week") {
        result.briefStyle = Brief::spelledOut;
    } else if (result.name.empty()) {
        // A unit that ICU puts together from a prefix and another unit has no name by itself, and
        // its short text is half spelt out in many languages ("Kibyte"). The narrow one is not.
        const Written many = written(result.full, kMany);
        result.name = utf8(many.text.tempSubStringBetween(many.unitBegin, many.unitEnd));
        result.brief = inUnit.unitWidth(UNUM_UNIT_WIDTH_NARROW);
        result.briefStyle = Brief::spacedNarrowSymbol;
    }
    return result;
}

/// "2.5 KiB" out of "2.5KiB".
void separateUnit(Written& quantity) {
    const int32_t begin = quantity.unitBegin;
    if (begin > 0 && u_isUWhiteSpace(quantity.text.char32At(begin - 1)) == 0) {
        quantity.text.insert(begin, u' ');
    }
}

} // namespace

struct UnitTexts::Prepared {
    bool isEnglish = false;
    std::string localDecimal;
    LocalizedNumberFormatter numbers;
    /// In the order of the table.
    std::vector<UnitFormat> formats;

    [[nodiscard]] const UnitFormat& of(const Unit& unit) const {
        return formats[static_cast<std::size_t>(&unit - UnitTable::units().data())];
    }

    /// "5 miles" out of its parts.
    [[nodiscard]] std::string composed(double value, const UnitFormat& format) const {
        return utf8(written(numbers, value).text) + ' ' + format.name;
    }

    /// The quantity's text. Some languages have a word for one or two of a unit, which would hide
    /// that a number is negative, or just about one.
    [[nodiscard]] std::string text(const Written& quantity, double value,
                                   const UnitFormat& format) const {
        const bool mayHideNumber = value == 1 || value == 2 || quantity.text.isEmpty() != 0;
        return quantity.showsNumber || mayHideNumber ? utf8(quantity.text)
                                                     : composed(value, format);
    }
};

UnitTexts::UnitTexts(std::string_view locale) : prepared_(std::make_unique<Prepared>()) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale wanted = readersLocale(locale);
    const icu::DecimalFormatSymbols symbols(wanted, status);
    const auto decimal = symbols.getSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol);
    prepared_->isEnglish = std::string_view(wanted.getLanguage()) == "en";
    prepared_->localDecimal = utf8(decimal);
    prepared_->numbers = numbersOf(wanted);
    warm(prepared_->numbers);
    const icu::MeasureFormat names(wanted, UMEASFMT_WIDTH_WIDE, status);
    prepared_->formats.reserve(UnitTable::units().size());
    for (const Unit& unit : UnitTable::units()) {
        prepared_->formats.push_back(unitFormat(unit, prepared_->numbers, names));
        warm(prepared_->formats.back().brief);
        warm(prepared_->formats.back().full);
    }
}

UnitTexts::~UnitTexts() = default;

std::string UnitTexts::brief(double value, const Unit& unit) const {
    const UnitFormat& format = prepared_->of(unit);
    if (format.briefStyle == Brief::spelledOut) {
        return full(value, unit);
    }
    Written quantity = written(format.brief, value);
    if (format.briefStyle == Brief::spacedNarrowSymbol) {
        separateUnit(quantity);
    }
    return prepared_->text(quantity, value, format);
}

std::string UnitTexts::full(double value, const Unit& unit) const {
    const UnitFormat& format = prepared_->of(unit);
    // In English they have their singular for exactly one: "-1 days", "1 days" for 1.0000001.
    if (format.briefStyle == Brief::spelledOut && prepared_->isEnglish && value != 1) {
        return prepared_->composed(value, format);
    }
    return prepared_->text(written(format.full, value), value, format);
}

std::string_view UnitTexts::name(const Unit& unit) const {
    return prepared_->of(unit).name;
}

std::string_view UnitTexts::localDecimal() const {
    return prepared_->localDecimal;
}

} // namespace pello
