// A bonus looks at two neighbours, and at each only for what kind of character it is. Kinds are a
// table for ASCII, which most texts are.

#include "search/BoundaryBonuses.h"

#include "base/Text.h"
#include "search/MatchScore.h"

#include <array>
#include <cstddef>

namespace pello {
namespace {

enum Traits : std::uint8_t {
    kNone = 0,
    kSeparator = 1,
    kLower = 2,
    kUpper = 4,
    kLetter = 8,
    kNumber = 16
};
constexpr std::size_t kTraitSets = 32;

constexpr std::string_view kSeparators = " -_./\\()[]:,+&'";

constexpr std::array<std::uint8_t, 128> makeAsciiTraits() {
    std::array<std::uint8_t, 128> traits{};
    for (const char separator : kSeparators) {
        traits[static_cast<unsigned char>(separator)] = kSeparator;
    }
    for (unsigned char c = 'a'; c <= 'z'; ++c) {
        traits[c] = kLower | kLetter;
        traits[c - 'a' + 'A'] = kUpper | kLetter;
    }
    for (unsigned char c = '0'; c <= '9'; ++c) {
        traits[c] = kNumber;
    }
    return traits;
}

constexpr std::array<std::uint8_t, 128> kAsciiTraits = makeAsciiTraits();

std::uint8_t traitsOf(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1 && first < kAsciiTraits.size()) {
        return kAsciiTraits[first];
    }
    unsigned traits = kNone;
    traits |= text::isLowercase(character) ? kLower : kNone;
    traits |= text::isUppercase(character) ? kUpper : kNone;
    traits |= text::isLetter(character) ? kLetter : kNone;
    traits |= text::isNumber(character) ? kNumber : kNone;
    return static_cast<std::uint8_t>(traits);
}

constexpr std::uint8_t bonus(unsigned previous, unsigned current) {
    if ((previous & kSeparator) != 0) {
        return MatchScore::kSeparatorBonus;
    }
    if ((previous & kLower) != 0 && (current & kUpper) != 0) {
        return MatchScore::kHumpBonus;
    }
    if (((previous & kNumber) != 0 && (current & kLetter) != 0) ||
        ((previous & kLetter) != 0 && (current & kNumber) != 0)) {
        return MatchScore::kNumberBonus;
    }
    return 0;
}

using BonusTable = std::array<std::array<std::uint8_t, kTraitSets>, kTraitSets>;

constexpr BonusTable makeBonuses() {
    BonusTable bonuses{};
    for (unsigned previous = 0; previous < kTraitSets; ++previous) {
        for (unsigned current = 0; current < kTraitSets; ++current) {
            bonuses[previous][current] = bonus(previous, current);
        }
    }
    return bonuses;
}

constexpr BonusTable kBonuses = makeBonuses();

void asciiBonuses(std::string_view text, std::uint8_t* bonuses) {
    unsigned previous = kNone;
    for (const char byte : text) {
        const unsigned current = kAsciiTraits[static_cast<unsigned char>(byte)];
        *bonuses++ = kBonuses[previous][current];
        previous = current;
    }
}

} // namespace

void boundaryBonuses(std::string_view text, std::vector<std::uint8_t>& bonuses) {
    bonuses.clear();
    if (text::hasOnlySingleByteCharacters(text)) {
        bonuses.resize(text.size());
        asciiBonuses(text, bonuses.data());
    } else {
        unsigned previous = kNone;
        for (const auto character : text::characterViews(text)) {
            const unsigned current = traitsOf(character);
            bonuses.push_back(kBonuses[previous][current]);
            previous = current;
        }
    }
    if (!bonuses.empty()) {
        bonuses.front() = MatchScore::kStartBonus;
    }
}

bool isSeparator(std::string_view character) {
    return !character.empty() && (traitsOf(character) & kSeparator) != 0;
}

} // namespace pello
