#include "ui/theme/PanelTheme.h"

#include "ui/Contrast.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pello {
namespace {

/// What `ground` looks like, as glass, over `behind`.
QColor through(const QColor& ground, double opacity, const QColor& behind) {
    const auto mixed = [opacity](int over, int under) {
        return static_cast<int>(std::lround(opacity * over + (1 - opacity) * under));
    };
    return {mixed(ground.red(), behind.red()), mixed(ground.green(), behind.green()),
            mixed(ground.blue(), behind.blue())};
}

TEST(PanelThemeTest, TextIsReadableOnEveryGround) {
    for (const PanelTheme& theme : {PanelTheme::light(), PanelTheme::dark()}) {
        const auto expectReadable = [](const QColor& text, const QColor& ground) {
            EXPECT_GE(contrastOf(text, ground), kReadable)
                << text.name().toStdString() << " on " << ground.name().toStdString();
        };
        for (const QColor& ground :
             {theme.ground, theme.selection, through(theme.ground, theme.glassOpacity, Qt::white),
              through(theme.ground, theme.glassOpacity, Qt::black)}) {
            for (const QColor& text : {theme.text, theme.dim, theme.accent}) {
                expectReadable(text, ground);
            }
        }
        expectReadable(theme.dim, theme.chip);
        expectReadable(theme.dim, theme.failureGround);
        expectReadable(theme.failure, theme.failureGround);
        expectReadable(theme.success, theme.ground);
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
