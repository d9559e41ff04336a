#pragma once

#include <QColor>
#include <QPalette>

namespace pello {

/// The panel's colours in one appearance. Text reads at 4.5:1 or better on every ground on which
/// it is painted, the glass over whatever lies behind included.
struct PanelTheme {
    QColor ground;
    /// Borders and separators, over any ground.
    QColor line;
    QColor text;
    /// Subtitles, the placeholder, the completion behind the caret.
    QColor dim;
    /// Matched letters and the caret.
    QColor accent;
    /// The selected row.
    QColor selection;
    /// Pills at the end of a row; their text is `dim`.
    QColor chip;
    QColor failure;
    QColor failureGround;
    QColor success;
    QColor shadow;
    /// How much of the ground covers what lies behind the panel when it is glass, 0 to 1.
    double glassOpacity = 1;

    [[nodiscard]] static PanelTheme light();
    [[nodiscard]] static PanelTheme dark();

    /// The appearance that goes with the desktop's `palette`.
    [[nodiscard]] static PanelTheme matching(const QPalette& palette);
};

} // namespace pello
