#include "updates/ReleaseVersion.h"

#include "base/Text.h"

#include <algorithm>
#include <cstddef>

namespace pello {
namespace {

constexpr std::size_t kLongest = 64;
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kWordCharacters = "abcdefghijklmnopqrstuvwxyz";

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Takes what is made of `characters` from the front of `text`.
std::string_view take(std::string_view& text, std::string_view characters) {
    const std::size_t length = std::min(text.find_first_not_of(characters), text.size());
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(length);
    return taken;
}

std::string number(std::string_view digits) {
    const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
    return std::string(digits.substr(zeros));
}

std::strong_ordering compareNumbers(const std::string& left, const std::string& right) {
    return left.size() != right.size() ? left.size() <=> right.size() : left.compare(right) <=> 0;
}

/// A number comes before a word, and of two words the alphabet decides.
std::strong_ordering comparePieces(const std::string& left, const std::string& right) {
    const auto isNumber = [](const std::string& piece) {
        return piece.empty() || isDigit(piece.front()); // zero has lost all its digits
    };
    if (isNumber(left) != isNumber(right)) {
        return isNumber(left) ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    return isNumber(left) ? compareNumbers(left, right) : left.compare(right) <=> 0;
}

std::string lowercasedAscii(std::string_view text) {
    std::string lowered(text);
    std::ranges::transform(lowered, lowered.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                    : character;
    });
    return lowered;
}

/// The numbers that `text` begins with; nothing when there is a dot without one.
std::optional<std::vector<std::string>> takeNumbers(std::string_view& text) {
    std::vector<std::string> numbers;
    do {
        if (!numbers.empty()) {
            text.remove_prefix(1);
        }
        const std::string_view digits = take(text, kDigits);
        if (digits.empty()) {
            return std::nullopt;
        }
        numbers.push_back(number(digits));
    } while (text.starts_with('.'));
    while (numbers.size() > 1 && numbers.back().empty()) {
        numbers.pop_back(); // 1.0 is 1.0.0
    }
    return numbers;
}

/// The words and numbers of `text`, which are what "-", "~", "." and the change from the one to the
/// other separate; nothing when something else is among them.
std::optional<std::vector<std::string>> piecesOf(std::string_view text) {
    std::vector<std::string> pieces;
    while (!text.empty()) {
        take(text, "-~._");
        if (const auto word = take(text, kWordCharacters); !word.empty()) {
            pieces.emplace_back(word);
        } else if (const auto digits = take(text, kDigits); !digits.empty()) {
            pieces.push_back(number(digits));
        } else if (!text.empty()) {
            return std::nullopt;
        }
    }
    return pieces;
}

} // namespace

std::optional<ReleaseVersion> ReleaseVersion::from(std::string_view text) {
    text = text::trimmingWhitespaceAndControls(text);
    if (text.size() > kLongest) {
        return std::nullopt;
    }
    ReleaseVersion version;
    version.text_ = text;
    const std::string lowered = lowercasedAscii(text.substr(0, text.find('+')));
    std::string_view rest = lowered;
    rest.remove_prefix(rest.starts_with('v') ? 1 : 0);
    auto numbers = takeNumbers(rest);
    auto preliminary = piecesOf(rest);
    if (!numbers || !preliminary) {
        return std::nullopt;
    }
    version.numbers_ = std::move(*numbers);
    version.preliminary_ = std::move(*preliminary);
    return version;
}

std::strong_ordering operator<=>(const ReleaseVersion& left, const ReleaseVersion& right) {
    const std::string zero;
    const std::size_t count = std::max(left.numbers_.size(), right.numbers_.size());
    const auto at = [&zero](const std::vector<std::string>& numbers, std::size_t index) {
        return index < numbers.size() ? numbers[index] : zero;
    };
    for (std::size_t index = 0; index < count; ++index) {
        const auto order = compareNumbers(at(left.numbers_, index), at(right.numbers_, index));
        if (order != 0) {
            return order;
        }
    }
    if (left.preliminary_.empty() || right.preliminary_.empty()) {
        const auto rank = [](const auto& pieces) { return pieces.empty() ? 1 : 0; };
        return rank(left.preliminary_) <=> rank(right.preliminary_);
    }
    const std::size_t pieces = std::min(left.preliminary_.size(), right.preliminary_.size());
    for (std::size_t index = 0; index < pieces; ++index) {
        const auto order = comparePieces(left.preliminary_[index], right.preliminary_[index]);
        if (order != 0) {
            return order;
        }
    }
    return left.preliminary_.size() <=> right.preliminary_.size();
}

} // namespace pello
