#include "keyboard/keys/KeyCombo.h"
#include "platform/PreferenceDomains.h"

#include <array>

// The system keeps its own shortcuts as a dictionary of
//   "64": { enabled: true, value: { parameters: [character, key code, modifier flags] } }
// with entries only for what the user ever changed.

namespace pello {
namespace {

/// The value under `key` if it is of type `T`, else null.
template <class T>
const T* entryOf(const PropertyDictionary& dictionary, std::string_view key) {
    const auto entry = dictionary.find(key);
    return entry == dictionary.end() ? nullptr : entry->second.as<T>();
}

/// The shortcut in an entry's `parameters`; nothing when they name none.
std::optional<KeyCombo> comboOf(const PropertyArray& parameters) {
    constexpr std::int64_t kNoKey = 65535;
    if (parameters.size() < 3) {
        return std::nullopt;
    }
    for (const PropertyValue& parameter : parameters) {
        if (parameter.as<std::int64_t>() == nullptr) {
            return std::nullopt;
        }
    }
    const std::int64_t keyCode = *parameters[1].as<std::int64_t>();
    const std::int64_t flags = *parameters[2].as<std::int64_t>();
    if (keyCode < 0 || keyCode >= kNoKey || flags < 0) {
        return std::nullopt;
    }
    return KeyCombo(static_cast<std::uint16_t>(keyCode), static_cast<std::uint64_t>(flags));
}

std::optional<KeyCombo> comboOf(const PropertyDictionary& entry) {
    const auto* value = entryOf<PropertyDictionary>(entry, "value");
    const auto* parameters =
        value == nullptr ? nullptr : entryOf<PropertyArray>(*value, "parameters");
    return parameters == nullptr ? std::nullopt : comboOf(*parameters);
}

} // namespace

std::optional<KeyCombo> KeyCombo::symbolicHotkey(const PreferenceDomains& preferences,
                                                 std::string_view identifier, KeyCombo fallback) {
    const auto stored = preferences.value("com.apple.symbolichotkeys", "AppleSymbolicHotKeys");
    const auto* hotkeys = stored ? stored->as<PropertyDictionary>() : nullptr;
    const auto* entry =
        hotkeys == nullptr ? nullptr : entryOf<PropertyDictionary>(*hotkeys, identifier);
    if (entry == nullptr) {
        return fallback;
    }
    const bool* isEnabled = entryOf<bool>(*entry, "enabled");
    if (isEnabled == nullptr || !*isEnabled) {
        return std::nullopt;
    }
    return comboOf(*entry).value_or(fallback);
}

std::optional<std::string_view>
KeyCombo::systemShortcutOwner(const PreferenceDomains& preferences) const {
    struct Shortcut {
        std::string_view owner;
        std::string_view identifier;
        KeyCombo fallback;
    };
    constexpr auto kShortcuts =
        std::to_array<Shortcut>({{"Spotlight", "64", {kSpaceKey, kCommand}},
                                 {"Finder search", "65", {kSpaceKey, kOption | kCommand}}});
    for (const auto& [owner, identifier, fallback] : kShortcuts) {
        if (symbolicHotkey(preferences, identifier, fallback) == *this) {
            return owner;
        }
    }
    return std::nullopt;
}

} // namespace pello
