#include "answers/Conversions.h"

#include "base/Text.h"

#include <cstddef>
#include <string>
#include <utility>

namespace pello {
namespace {

// One letter alone asks for nothing.
constexpr std::size_t kFewestCharacters = 2;

} // namespace

Conversions::Conversions(const Surroundings& surroundings)
    : units_(surroundings.locale), times_(surroundings), dates_(surroundings) {}

std::vector<ConversionResult> Conversions::results(std::string_view query, Date now) const {
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
    add(times_.convert(text, now));
    add(date(text, now));
    return results;
}

std::optional<ConversionResult> Conversions::date(std::string_view text, Date now) const {
    constexpr std::string_view kQuestion = "how many ";
    if (text.starts_with(kQuestion)) {
        text.remove_prefix(kQuestion.size());
    }
    auto result = dates_.countdown(text, now);
    return result ? std::move(result) : dates_.offset(text, now);
}

} // namespace pello
