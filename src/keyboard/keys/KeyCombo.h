#pragma once

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

class KeyboardLayout;
class PreferenceDomains;
struct InputEvent;

/// One keyboard shortcut: a key and the modifiers held with it. A plain value.
class KeyCombo {
public:
    static constexpr std::uint64_t kShift = modifiers::kShift;
    static constexpr std::uint64_t kControl = modifiers::kControl;
    static constexpr std::uint64_t kOption = modifiers::kOption;
    static constexpr std::uint64_t kCommand = modifiers::kCommand;
    static constexpr std::uint64_t kModifierMask = modifiers::kShortcutMask;

    static constexpr std::uint16_t kSpaceKey = virtualKeys::kSpace;

    /// The key with virtual code `keyCode`; of `flags` only the four modifiers above are kept.
    constexpr KeyCombo(std::uint16_t keyCode, std::uint64_t flags)
        : keyCode_(keyCode), modifiers_(flags & kModifierMask) {}

    /// The shortcut that a key press makes: with Command, Option or Control any key, otherwise
    /// only a function key. Nothing for every other key.
    [[nodiscard]] static std::optional<KeyCombo> fromEvent(const InputEvent& event);

    /// Parses the stored form, `keyCode:flags` in decimal; nothing when it is anything else.
    [[nodiscard]] static std::optional<KeyCombo> fromStorage(std::string_view stored);

    /// The stored form, such as 49:524288 for Option-Space.
    [[nodiscard]] std::string storageValue() const;

    /// What users read: the symbols of the modifiers as menus order them, then the key's name.
    [[nodiscard]] std::string displayString(const KeyboardLayout& layout) const;

    /// The name of one key: its symbol, its number among the function keys, what it types in
    /// `layout`, or "Key 10". Never empty.
    [[nodiscard]] static std::string keyName(std::uint16_t keyCode, const KeyboardLayout& layout);

    /// What the system's own shortcut number `identifier` is set to; `fallback`, the system's
    /// choice, when nothing usable is set; nothing when the user switched the shortcut off.
    [[nodiscard]] static std::optional<KeyCombo>
    symbolicHotkey(const PreferenceDomains& preferences, std::string_view identifier,
                   KeyCombo fallback);

    /// The feature of the system that this combo belongs to at the moment: "Spotlight" or
    /// "Finder search". Reads the preferences afresh.
    [[nodiscard]] std::optional<std::string_view>
    systemShortcutOwner(const PreferenceDomains& preferences) const;

    [[nodiscard]] constexpr std::uint16_t keyCode() const { return keyCode_; }
    [[nodiscard]] constexpr std::uint64_t modifiers() const { return modifiers_; }

    friend bool operator==(const KeyCombo&, const KeyCombo&) = default;

private:
    std::uint16_t keyCode_;
    std::uint64_t modifiers_;
};

} // namespace pello
