#include "answers/Conversions.h"

#include "base/Text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace pello {
namespace {

// One letter alone asks for nothing.
constexpr std::size_t kFewestCharacters = 2;

} // namespace

Conversions::Conversions(const Surroundings& surroundings) : units_(surroundings.locale) {}

std::vector<ConversionResult> Conversions::results(std::string_view query, Date /*now*/) const {
    const std::string text = text::lowercased(text::trimmingBlanks(query));
    std::vector<ConversionResult> results;
    if (text::characterCount(text) < kFewestCharacters) {
        return results;
    }
    const auto add = [&results](std::optional<ConversionResult> result) {
        if (result) {
            results.push_back(std::move(*result));
        }
    };
    add(units_.convert(text));
    return results;
}

} // namespace pello
