#pragma once

#include <string>

namespace pello {

/// One column of one line of a terminal.
struct TerminalCell {
    enum class Style { plain, strong, marked, dim, failure };

    /// Empty where the character to the left reaches into this column.
    std::string text = " ";
    Style style = Style::plain;
    /// Part of the row that keys are about.
    bool isSelected = false;

    friend bool operator==(const TerminalCell&, const TerminalCell&) = default;
};

} // namespace pello
