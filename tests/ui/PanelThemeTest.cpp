#include "ui/theme/PanelTheme.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pello {
namespace {

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// Relative luminance, 0 to 1.
double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double lighter = std::max(luminance(one), luminance(other));
    const double darker = std::min(luminance(one), luminance(other));
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(PanelThemeTest, TextIsReadableOnEveryGround) {
    constexpr double kReadable = 4.5;
    for (const PanelTheme& theme : {PanelTheme::light(), PanelTheme::dark()}) {
        for (const QColor& ground : {theme.ground, theme.selection}) {
            for (const QColor& text : {theme.text, theme.dim, theme.accent}) {
                EXPECT_GE(contrast(text, ground), kReadable)
                    << text.name().toStdString() << " on " << ground.name().toStdString();
            }
        }
    }
}

TEST(PanelThemeTest, FollowsThePaletteOfTheDesktop) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(30, 30, 30));
    palette.setColor(QPalette::WindowText, QColor(230, 230, 230));
    EXPECT_EQ(PanelTheme::matching(palette).ground, PanelTheme::dark().ground);
    palette.setColor(QPalette::Window, QColor(240, 240, 240));
    palette.setColor(QPalette::WindowText, QColor(20, 20, 20));
    EXPECT_EQ(PanelTheme::matching(palette).ground, PanelTheme::light().ground);
}

} // namespace
} // namespace pello
