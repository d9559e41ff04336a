#include "base/Collation.h"

#include "base/ReadersLocale.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/uniset.h>
#include <unicode/usetiter.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace pello {

/// Most titles are ASCII, and ICU takes ten times as long for them as a table. Under most locales
/// the order of printable ASCII texts is that of their characters' ranks, place by place; see
/// `asciiRanks`.
struct Collation::Rules {
    /// By byte; 0 for all that is not printable ASCII.
    using Ranks = std::array<std::uint8_t, 256>;

    std::unique_ptr<icu::Collator> collator;
    std::optional<Ranks> ranks;
};

namespace {

icu::StringPiece piece(std::string_view utf8) {
    return {utf8.data(), static_cast<int32_t>(utf8.size())};
}

constexpr char kFirstPrintable = ' ';
constexpr char kLastPrintable = '~';

/// Whether the locale treats some sequence of ASCII characters as a letter of its own.
bool hasAsciiSequences(const icu::Collator& collator) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::UnicodeSet> tailored(collator.getTailoredSet(status));
    if (U_FAILURE(status) != 0 || tailored == nullptr) {
        return true;
    }
    icu::UnicodeSetIterator element(*tailored);
    while (element.next() != 0) {
        const icu::UnicodeString& text = element.getString();
        bool isAscii = text.length() > 1;
        for (int32_t i = 0; i < text.length(); ++i) {
            isAscii = isAscii && text.charAt(i) < 0x80;
        }
        if (isAscii) {
            return true;
        }
    }
    return false;
}

bool hasPlainAttributes(const icu::Collator& collator) {
    UErrorCode status = U_ZERO_ERROR;
    return collator.getAttribute(UCOL_NUMERIC_COLLATION, status) == UCOL_OFF &&
           collator.getAttribute(UCOL_ALTERNATE_HANDLING, status) == UCOL_NON_IGNORABLE &&
           collator.getAttribute(UCOL_CASE_LEVEL, status) == UCOL_OFF && U_SUCCESS(status) != 0;
}

/// The rank of each printable ASCII character, if ranks alone order texts of them: digits are not
/// read as numbers, punctuation counts, no sequence is a letter, and any two characters are either
/// equal or differ as letters do, so that the first difference decides.
std::optional<Collation::Rules::Ranks> asciiRanks(const icu::Collator& collator) {
    if (!hasPlainAttributes(collator) || hasAsciiSequences(collator)) {
        return std::nullopt;
    }
    const std::unique_ptr<icu::Collator> primary(collator.clone());
    primary->setStrength(icu::Collator::PRIMARY);
    const auto order = [](const icu::Collator& rules, const std::string& left,
                          const std::string& right) {
        UErrorCode status = U_ZERO_ERROR;
        return static_cast<int>(rules.compareUTF8(piece(left), piece(right), status));
    };
    std::vector<std::string> characters;
    for (char c = kFirstPrintable; c <= kLastPrintable; ++c) {
        characters.emplace_back(1, c);
    }
    std::sort(characters.begin(), characters.end(), [&](const auto& left, const auto& right) {
        return order(collator, left, right) < 0;
    });
    Collation::Rules::Ranks ranks{};
    std::string previous;
    std::uint8_t rank = 0;
    for (const std::string& character : characters) {
        const int step = order(collator, previous, character);
        if (step != order(*primary, previous, character)) {
            return std::nullopt;
        }
        rank = static_cast<std::uint8_t>(rank + (step != 0 ? 1 : 0));
        ranks[static_cast<unsigned char>(character[0])] = rank;
        previous = character;
    }
    return ranks;
}

/// The order by ranks; nothing unless both texts are printable ASCII.
std::optional<int> compareByRank(const Collation::Rules::Ranks& ranks, std::string_view left,
                                 std::string_view right) {
    const auto rank = [&](char byte) { return ranks[static_cast<unsigned char>(byte)]; };
    const auto isRanked = [&](char byte) { return rank(byte) != 0; };
    if (!std::all_of(left.begin(), left.end(), isRanked) ||
        !std::all_of(right.begin(), right.end(), isRanked)) {
        return std::nullopt;
    }
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (rank(left[i]) != rank(right[i])) {
            return rank(left[i]) < rank(right[i]) ? -1 : 1;
        }
    }
    return static_cast<int>(left.size() > common) - static_cast<int>(right.size() > common);
}

} // namespace

Collation::Collation(std::string_view locale) : rules_(std::make_unique<Rules>()) {
    UErrorCode status = U_ZERO_ERROR;
    rules_->collator.reset(icu::Collator::createInstance(readersLocale(locale), status));
    if (U_FAILURE(status) != 0 || rules_->collator == nullptr) {
        status = U_ZERO_ERROR;
        rules_->collator.reset(icu::Collator::createInstance(icu::Locale::getRoot(), status));
    }
    if (rules_->collator != nullptr) {
        // Secondary strength: letters and accents count, case does not.
        rules_->collator->setStrength(icu::Collator::SECONDARY);
        rules_->ranks = asciiRanks(*rules_->collator);
    }
}

Collation::~Collation() = default;

int Collation::compare(std::string_view left, std::string_view right) const {
    if (rules_->collator == nullptr) { // no Unicode data installed: any fixed order will do
        return left.compare(right);
    }
    if (const auto& ranks = rules_->ranks; ranks) {
        if (const auto order = compareByRank(*ranks, left, right)) {
            return *order;
        }
    }
    UErrorCode status = U_ZERO_ERROR;
    return rules_->collator->compareUTF8(piece(left), piece(right), status);
}

std::string Collation::sortKey(std::string_view utf8) const {
    if (rules_->collator == nullptr) {
        return std::string(utf8);
    }
    const auto wide = icu::UnicodeString::fromUTF8(piece(utf8));
    std::string key(2 * utf8.size() + 16, '\0');
    const auto fill = [&] {
        return rules_->collator->getSortKey(wide, reinterpret_cast<uint8_t*>(key.data()),
                                            static_cast<int32_t>(key.size()));
    };
    auto length = static_cast<std::size_t>(fill());
    if (length > key.size()) {
        key.resize(length);
        length = static_cast<std::size_t>(fill());
    }
    key.resize(length > 0 ? length - 1 : 0); // without the terminating zero
    return key;
}

const Collation& userCollation() {
    static const Collation collation;
    return collation;
}

} // namespace pello
