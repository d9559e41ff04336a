#include "keyboard/keys/KeyCombo.h"

#include "base/Text.h"
#include "keyboard/keys/KeyNames.h"
#include "platform/InputEvent.h"
#include "platform/KeyboardLayout.h"

#include <array>
#include <charconv>
#include <system_error>
#include <utility>

namespace pello {
namespace {

/// In the order in which menus show them.
constexpr auto kModifierSymbols =
    std::to_array<std::pair<std::uint64_t, std::string_view>>({{KeyCombo::kControl, "⌃"},
                                                               {KeyCombo::kOption, "⌥"},
                                                               {KeyCombo::kShift, "⇧"},
                                                               {KeyCombo::kCommand, "⌘"}});

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

std::optional<KeyCombo> KeyCombo::fromEvent(const InputEvent& event) {
    const KeyCombo combo(event.keyCode, event.flags);
    const bool isShortcut = (combo.modifiers_ & ~kShift) != 0;
    return isShortcut || !functionKeyName(event.keyCode).empty() ? std::optional(combo)
                                                                 : std::nullopt;
}

std::optional<KeyCombo> KeyCombo::fromStorage(std::string_view stored) {
    const std::size_t colon = stored.find(':');
    if (colon == std::string_view::npos) {
        return std::nullopt;
    }
    const auto keyCode = parseUnsigned<std::uint16_t>(stored.substr(0, colon));
    const auto flags = parseUnsigned<std::uint64_t>(stored.substr(colon + 1));
    if (!keyCode || !flags) {
        return std::nullopt;
    }
    return KeyCombo(*keyCode, *flags);
}

std::string KeyCombo::storageValue() const {
    return std::to_string(keyCode_) + ':' + std::to_string(modifiers_);
}

std::string KeyCombo::displayString(const KeyboardLayout& layout) const {
    std::string display;
    for (const auto& [flag, symbol] : kModifierSymbols) {
        if ((modifiers_ & flag) != 0) {
            display += symbol;
        }
    }
    return display + keyName(keyCode_, layout);
}

std::string KeyCombo::keyName(std::uint16_t keyCode, const KeyboardLayout& layout) {
    for (const std::string_view name : {specialKeyName(keyCode), functionKeyName(keyCode)}) {
        if (!name.empty()) {
            return std::string(name);
        }
    }
    const std::string character = layout.character(keyCode);
    return character.empty() ? "Key " + std::to_string(keyCode) : text::uppercased(character);
}

} // namespace pello
