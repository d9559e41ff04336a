#include "updates/Release.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace pello {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {"jan", "feb", "mar", "apr", "may", "jun",
                                                      "jul", "aug", "sep", "oct", "nov", "dec"};

std::optional<int> wholeNumber(std::string_view text) {
    int value = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && rest == text.data() + text.size();
    return isWhole ? std::optional(value) : std::nullopt;
}

std::optional<unsigned> monthNamed(std::string_view text) {
    const std::string name = text::lowercased(text.substr(0, 3));
    const auto* const found = std::ranges::find(kMonths, name);
    return found == kMonths.end()
               ? std::nullopt
               : std::optional(static_cast<unsigned>(found - kMonths.begin()) + 1);
}

} // namespace

std::optional<std::chrono::year_month_day> releaseDay(std::string_view text) {
    auto words = text::words(text);
    if (!words.empty() && words.front().ends_with(',')) {
        words.erase(words.begin()); // the day of the week
    }
    if (words.size() < 3) {
        return std::nullopt;
    }
    const auto day = wholeNumber(words[0]);
    const auto month = monthNamed(words[1]);
    const auto year = wholeNumber(words[2]);
    if (!day || !month || !year || *day < 1 || *year < 1000 || *year > 9999) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(*year), std::chrono::month(*month),
                                           std::chrono::day(static_cast<unsigned>(*day))};
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::size_t newerCount(std::span<const Release> releases, const ReleaseVersion& installed) {
    return static_cast<std::size_t>(std::ranges::count_if(
        releases, [&](const Release& release) { return release.version > installed; }));
}

} // namespace pello
