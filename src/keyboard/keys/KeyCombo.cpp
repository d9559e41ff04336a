#include "keyboard/keys/KeyCombo.h"

#include "base/Text.h"

#include <charconv>
#include <system_error>

namespace pello {
namespace {

/// The whole of `digits` as a decimal number that fits `Number`: no sign, no space.
template <class Number>
std::optional<Number> parseUnsigned(std::string_view digits) {
    Number number = 0;
    const auto [stop, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || stop != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return number;
}

} // namespace

std::optional<KeyCombo> KeyCombo::fromStorage(std::string_view stored) {
    const auto pieces = text::split(stored, ':');
    if (pieces.size() != 2) {
        return std::nullopt;
    }
    const auto keyCode = parseUnsigned<std::uint16_t>(pieces[0]);
    const auto flags = parseUnsigned<std::uint64_t>(pieces[1]);
    if (!keyCode || !flags) {
        return std::nullopt;
    }
    return KeyCombo(*keyCode, *flags);
}

std::string KeyCombo::storageValue() const {
    return std::to_string(keyCode_) + ':' + std::to_string(modifiers_);
}

} // namespace pello
