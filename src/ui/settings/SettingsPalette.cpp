#include "ui/settings/SettingsPalette.h"

#include "ui/theme/Contrast.h"
#include "ui/theme/PanelTheme.h"

namespace pello::SettingsPalette {
namespace {

constexpr double kDimShare = 0.68;

/// Of the grounds of cards and of the window the one that is nearer to the texts.
QColor hardest(const QPalette& desktop) {
    const QColor text = desktop.color(QPalette::Text);
    const QColor card = desktop.color(QPalette::Base);
    const QColor window = desktop.color(QPalette::Window);
    return contrast::ratio(text, card) < contrast::ratio(text, window) ? card : window;
}

} // namespace

QPalette make(const QPalette& desktop) {
    QPalette palette = desktop;
    const QColor ground = hardest(desktop);
    palette.setColor(kDim, contrast::readable(blend(desktop, kDimShare), ground));
    palette.setColor(kProblem, contrast::readable(PanelTheme::matching(desktop).failure, ground));
    palette.setColor(QPalette::Highlight,
                     contrast::readable(desktop.color(QPalette::Highlight),
                                        desktop.color(QPalette::HighlightedText)));
    return palette;
}

QColor blend(const QPalette& palette, double share) {
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const auto mixed = [share](int from, int to) {
        return static_cast<int>(from + share * (to - from));
    };
    return {mixed(ground.red(), text.red()), mixed(ground.green(), text.green()),
            mixed(ground.blue(), text.blue())};
}

} // namespace pello::SettingsPalette
