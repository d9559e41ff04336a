#pragma once

namespace pello {

/// The panel's measures, in logical pixels, all in proportion to the font size of the settings.
struct PanelMetrics {
    double scale = 1;

    int width = 720;
    int radius = 16;
    int headerHeight = 60;
    int headerPadding = 20;
    /// Room between the search symbol and the text.
    int headerGap = 14;
    int searchSymbol = 22;
    int caretWidth = 2;

    /// From one row to the next.
    int rowPitch = 50;
    /// Free room above and below a row's highlight.
    int rowGap = 1;
    int rowMargin = 8;
    int rowRadius = 10;
    int rowPadding = 12;
    int icon = 32;
    int listPadding = 7;

    int chipPadding = 7;
    int chipRadius = 5;
    /// Room that the shadow takes on each side.
    int shadowMargin = 44;

    double titlePixels = 16;
    double answerPixels = 19;
    double subtitlePixels = 12;
    double fieldPixels = 22;

    /// Measures for texts of `fontSize`; one beyond reason counts as the nearest within.
    [[nodiscard]] static PanelMetrics forFontSize(double fontSize);
};

} // namespace pello
