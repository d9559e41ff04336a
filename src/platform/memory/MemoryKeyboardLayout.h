#pragma once

#include "platform/KeyboardLayout.h"

#include <map>

namespace pello {

/// A layout kept in memory: at first the letters, digits and signs of a US keyboard.
class MemoryKeyboardLayout final : public KeyboardLayout {
public:
    MemoryKeyboardLayout();

    [[nodiscard]] std::string character(std::uint16_t keyCode) const override {
        const auto entry = characters.find(keyCode);
        return entry == characters.end() ? std::string() : entry->second;
    }

    /// What each key types, by its virtual code.
    std::map<std::uint16_t, std::string> characters;
};

} // namespace pello
