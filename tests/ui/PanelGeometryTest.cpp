#include "ui/panel/PanelGeometry.h"

#include <gtest/gtest.h>

namespace pello::geometry {
namespace {

constexpr QRect kScreen(1920, 100, 1600, 1000); // beside another, below a bar
constexpr QSize kPanel(720, 260);

TEST(PanelGeometryTest, StandsWhereThePlacementSaysOnItsScreen) {
    EXPECT_EQ(topLeft({.centerX = 0.5, .top = 0.22}, kScreen, kPanel),
              QPoint(1920 + 800 - 360, 100 + 220));
}

TEST(PanelGeometryTest, NeverLeavesTheScreen) {
    EXPECT_EQ(topLeft({.centerX = -3, .top = -3}, kScreen, kPanel), kScreen.topLeft());
    EXPECT_EQ(topLeft({.centerX = 7, .top = 0.99}, kScreen, kPanel),
              QPoint(1920 + 1600 - 720, 100 + 1000 - 260));
    EXPECT_EQ(topLeft({.centerX = 0.5, .top = 1e300}, kScreen, {5000, 5000}), kScreen.topLeft());
}

TEST(PanelGeometryTest, APlacementReadOffAScreenPutsThePanelBackThere) {
    for (const QPoint corner : {QPoint(1920, 100), QPoint(2222, 333), QPoint(2799, 840)}) {
        EXPECT_EQ(topLeft(placement(corner, kPanel.width(), kScreen), kScreen, kPanel), corner);
    }
}

TEST(PanelGeometryTest, RoundCornersAreAlikeAndCutNoEdge) {
    const QRect area(5, 7, 60, 40);
    const QRegion region = roundedRegion(area, 16);
    EXPECT_EQ(region.boundingRect(), area);
    EXPECT_FALSE(region.contains(area.topLeft()));
    EXPECT_TRUE(region.contains(area.topLeft() + QPoint(5, 5)));
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x) {
            const bool isInside = region.contains(area.topLeft() + QPoint(x, y));
            ASSERT_EQ(isInside, region.contains(area.topRight() + QPoint(-x, y)));
            ASSERT_EQ(isInside, region.contains(area.bottomLeft() + QPoint(x, -y)));
        }
    }
}

} // namespace
} // namespace pello::geometry
