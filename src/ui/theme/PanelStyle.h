#pragma once

#include "ui/theme/PanelMetrics.h"
#include "ui/theme/PanelTheme.h"

#include <QFont>

namespace pello {

/// Everything that decides how the panel looks: colours, measures and fonts.
struct PanelStyle {
    PanelTheme theme;
    PanelMetrics metrics;
    QFont titleFont;
    /// For the titles of answers, which are what the user wants to read.
    QFont answerFont;
    QFont subtitleFont;
    QFont fieldFont;

    /// The style for the desktop's `palette` and interface font, at the settings' `fontSize`.
    [[nodiscard]] static PanelStyle make(const QPalette& palette, const QFont& interfaceFont,
                                         double fontSize);
};

} // namespace pello
