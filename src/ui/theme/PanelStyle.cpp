#include "ui/theme/PanelStyle.h"

namespace pello {

namespace {

QFont sized(const QFont& font, double pixels) {
    QFont result(font.families());
    result.setPixelSize(qRound(pixels));
    return result;
}

} // namespace

PanelStyle PanelStyle::make(const QPalette& palette, const QFont& interfaceFont, double fontSize) {
    const auto metrics = PanelMetrics::forFontSize(fontSize);
    return {.theme = PanelTheme::matching(palette),
            .metrics = metrics,
            .titleFont = sized(interfaceFont, metrics.titlePixels),
            .answerFont = sized(interfaceFont, metrics.answerPixels),
            .subtitleFont = sized(interfaceFont, metrics.subtitlePixels),
            .fieldFont = sized(interfaceFont, metrics.fieldPixels)};
}

} // namespace pello
