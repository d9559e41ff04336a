#include "answers/UnitConversion.h"

#include "answers/UnitNumber.h"
#include "answers/UnitPhrase.h"
#include "base/Text.h"

#include <cmath>
#include <cstddef>
#include <string>

namespace pello {
namespace {

/// "72 ° f" as "72 °f": a degree sign belongs to the letter after it.
std::string joiningDegrees(std::string_view phrase) {
    constexpr std::string_view kLoose = "° ";
    constexpr std::string_view kJoined = "°";
    std::string result;
    std::size_t at = phrase.find(kLoose);
    while (at != std::string_view::npos) {
        result.append(phrase.substr(0, at)).append(kJoined);
        phrase.remove_prefix(at + kLoose.size());
        at = phrase.find(kLoose);
    }
    return result.append(phrase);
}

} // namespace

std::optional<ConversionResult> UnitConversion::convert(std::string_view query) const {
    const auto leading = UnitNumber::leading(query, texts_.localDecimal());
    if (!leading || leading->rest.empty()) {
        return std::nullopt;
    }
    const std::string phrase = joiningDegrees(leading->rest);
    const auto units = UnitPhrase::read(text::words(phrase), units_);
    if (!units) {
        return std::nullopt;
    }
    const Unit& source = *units->source;
    const Unit* target =
        units->target != nullptr ? units->target : units_.named(source.counterpart);
    if (target == nullptr) {
        return std::nullopt;
    }
    const double value = converted(leading->number, source, *target);
    if (!std::isfinite(value)) {
        return std::nullopt;
    }
    ConversionResult result{.kind = ConversionResult::Kind::unit,
                            .title = texts_.brief(value, *target),
                            .subtitle = texts_.full(leading->number, source)};
    if (result.title.empty()) {
        return std::nullopt;
    }
    result.subtitle.append(" in ").append(texts_.name(*target));
    return result;
}

} // namespace pello
