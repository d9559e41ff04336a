#include "ui/settings/SettingsPalette.h"

#include "ui/theme/PanelTheme.h"

namespace pello::SettingsPalette {
namespace {

constexpr double kDimShare = 0.68;

} // namespace

QPalette make(const QPalette& desktop) {
    QPalette palette = desktop;
    palette.setColor(kDim, blend(desktop, kDimShare));
    palette.setColor(kProblem, PanelTheme::matching(desktop).failure);
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
