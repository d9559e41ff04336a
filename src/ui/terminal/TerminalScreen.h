#pragma once

#include "ui/terminal/TerminalCell.h"
#include "ui/terminal/TerminalGlyph.h"
#include "ui/terminal/TerminalSize.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// What stands where in a terminal's window. A plain value.
class TerminalScreen {
public:
    struct Place {
        int row = 0;
        int column = 0;

        friend bool operator==(const Place&, const Place&) = default;
    };

    explicit TerminalScreen(TerminalSize size);

    [[nodiscard]] TerminalSize size() const { return size_; }

    /// The cells of a line, one per column.
    [[nodiscard]] std::span<const TerminalCell> line(int row) const;

    /// The text of a line without the spaces at its end.
    [[nodiscard]] std::string text(int row) const;

    /// Writes `glyphs` from `place` on, as far as they fit. Marked ones stand out; the others have
    /// `style`. Returns the place behind.
    Place put(Place place, std::span<const TerminalGlyph> glyphs,
              TerminalCell::Style style = TerminalCell::Style::plain);
    Place put(Place place, std::string_view utf8,
              TerminalCell::Style style = TerminalCell::Style::plain);

    /// Shows that keys are about this line.
    void select(int row);

    /// Where the user types; nothing while there is no such place.
    std::optional<Place> caret;

private:
    [[nodiscard]] std::span<TerminalCell> cells(int row);

    TerminalSize size_;
    std::vector<TerminalCell> cells_;
};

} // namespace pello
