#pragma once

#include <string>

namespace pello {

/// A key that was pressed in a terminal, as far as terminals tell. A plain value.
struct TerminalKey {
    enum class Name {
        character,
        enter,
        tab,
        escape,
        backspace,
        forwardDelete,
        up,
        down,
        left,
        right,
        home,
        end,
        pageUp,
        pageDown
    };
    enum class With { nothing, shift, alt, control };

    Name name = Name::character;
    With with = With::nothing;
    /// Of characters: what was typed or pasted; with a modifier, one of them.
    std::string text;

    friend bool operator==(const TerminalKey&, const TerminalKey&) = default;
};

} // namespace pello
