#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// One keyboard shortcut: a key and the modifiers held with it. A plain value.
class KeyCombo {
public:
    /// Modifier flags, in the values that key events carry.
    static constexpr std::uint64_t kShift = 0x20000;
    static constexpr std::uint64_t kControl = 0x40000;
    static constexpr std::uint64_t kOption = 0x80000;
    static constexpr std::uint64_t kCommand = 0x100000;
    static constexpr std::uint64_t kModifierMask = kShift | kControl | kOption | kCommand;

    static constexpr std::uint16_t kSpaceKey = 49;

    /// The key with virtual code `keyCode`; of `flags` only the four modifiers above are kept.
    constexpr KeyCombo(std::uint16_t keyCode, std::uint64_t flags)
        : keyCode_(keyCode), modifiers_(flags & kModifierMask) {}

    /// Parses the stored form, `keyCode:flags` in decimal; nothing when it is anything else.
    [[nodiscard]] static std::optional<KeyCombo> fromStorage(std::string_view stored);

    /// The stored form, such as 49:524288 for Option-Space.
    [[nodiscard]] std::string storageValue() const;

    [[nodiscard]] constexpr std::uint16_t keyCode() const { return keyCode_; }
    [[nodiscard]] constexpr std::uint64_t modifiers() const { return modifiers_; }

    friend bool operator==(const KeyCombo&, const KeyCombo&) = default;

private:
    std::uint16_t keyCode_;
    std::uint64_t modifiers_;
};

} // namespace pello
