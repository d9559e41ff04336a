#include "search/BoundaryBonuses.h"

#include "base/Text.h"
#include "search/MatchScore.h"

namespace pello {
namespace {

constexpr std::string_view kSeparators = " -_./\\()[]:,+&'";

bool isSeparator(std::string_view character) {
    return character.size() == 1 && kSeparators.find(character[0]) != std::string_view::npos;
}

std::uint8_t bonus(std::string_view previous, std::string_view current) {
    if (isSeparator(previous)) {
        return MatchScore::kSeparatorBonus;
    }
    if (text::isLowercase(previous) && text::isUppercase(current)) {
        return MatchScore::kHumpBonus;
    }
    if ((text::isNumber(previous) && text::isLetter(current)) ||
        (text::isLetter(previous) && text::isNumber(current))) {
        return MatchScore::kNumberBonus;
    }
    return 0;
}

} // namespace

std::vector<std::uint8_t> boundaryBonuses(std::string_view text) {
    const auto characters = text::characterViews(text);
    std::vector<std::uint8_t> bonuses(characters.size());
    for (std::size_t i = 0; i < characters.size(); ++i) {
        bonuses[i] = i == 0 ? MatchScore::kStartBonus : bonus(characters[i - 1], characters[i]);
    }
    return bonuses;
}

} // namespace pello
