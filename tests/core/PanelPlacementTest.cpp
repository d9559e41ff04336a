#include "core/settings/PanelPlacement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <locale>

namespace pello {
namespace {

using testing::Eq;
using testing::Optional;

PanelPlacement at(double centerX, double top) {
    return {.centerX = centerX, .top = top};
}

TEST(PanelPlacementTest, ReadsTwoFiniteNumbersAndIgnoresEmptyPieces) {
    EXPECT_THAT(PanelPlacement::fromStorage("0.5:0.22"), Optional(PanelPlacement{}));
    EXPECT_THAT(PanelPlacement::fromStorage(":0.3::0.4:"), Optional(PanelPlacement{0.3, 0.4}));
    EXPECT_THAT(PanelPlacement::fromStorage("-1:2.5e-1"), Optional(at(-1, 0.25)));
    for (const char* text : {"", ":", "0.5", "0.5:", "0.5:0.2:0.1", "0.5:x", "nan:0.2", "inf:0.2",
                             "0.5:-inf", "1e999:0.2", "0x1:0.2", " 0.5:0.2", "0.5:0.2 ", "0,5:0,2",
                             "1-2:0.2", "1e:0.2", "--1:0.2"}) {
        EXPECT_THAT(PanelPlacement::fromStorage(text), Eq(std::nullopt)) << '"' << text << '"';
    }
}

TEST(PanelPlacementTest, WritesTheShortestNumbersThatReadBackTheSame) {
    EXPECT_EQ(PanelPlacement{}.storageValue(), "0.5:0.22");
    for (const PanelPlacement placement : {at(1, 0), at(1.0 / 3, 0.1 + 0.2), at(-1e-9, 1e300)}) {
        EXPECT_THAT(PanelPlacement::fromStorage(placement.storageValue()), Optional(placement));
    }
}

TEST(PanelPlacementTest, DoesNotFollowTheLocale) {
    struct Comma : std::numpunct<char> {
        [[nodiscard]] char do_decimal_point() const override { return ','; }
    };
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new Comma)); // the locale owns it
    EXPECT_EQ(PanelPlacement{}.storageValue(), "0.5:0.22");
    EXPECT_THAT(PanelPlacement::fromStorage("0.5:0.22"), Optional(PanelPlacement{}));
    std::locale::global(before);
}

} // namespace
} // namespace pello
