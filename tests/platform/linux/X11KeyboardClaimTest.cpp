#include "platform/linux/X11KeyboardClaim.h"

#include "platform/qt/QtMainLoop.h"
#include "support/PrivateDisplay.h"
#include "support/ProbeWindow.h"

#include <gtest/gtest.h>

#include <optional>

namespace pello {
namespace {

using Outcome = X11KeyboardClaim::Outcome;

class X11KeyboardClaimTest : public testing::Test {
protected:
    void begin() {
        claim_.begin([this](Outcome outcome) { outcome_ = outcome; });
    }

    PrivateDisplay display_;
    QtMainLoop loop_;
    bool isOurs_ = false;
    X11KeyboardClaim claim_{loop_, [this] { return isOurs_; }};
    std::optional<Outcome> outcome_;
};

TEST_F(X11KeyboardClaimTest, TellsAtOnceThatAFreeKeyboardIsFreeAndLeavesItSo) {
    ProbeWindow window;
    begin();
    EXPECT_EQ(outcome_, Outcome::free);
    display_.press(38);
    display_.release(38);
    display_.press(39);
    EXPECT_EQ(window.receivedUntil(39), (std::vector<std::string>{"d38", "u38"}));
}

TEST_F(X11KeyboardClaimTest, ClosesAMenuByEscape) {
    ProbeWindow menu;
    menu.openMenu();
    begin();
    EXPECT_EQ(outcome_, std::nullopt);
    turnQtUntil([&] {
        menu.isMenuOpen();
        return outcome_.has_value();
    });
    EXPECT_EQ(outcome_, Outcome::free);
}

TEST_F(X11KeyboardClaimTest, GivesUpWhereEscapeDoesNotHelp) {
    ProbeWindow menu;
    menu.openMenu();
    begin();
    turnQtUntil([this] { return outcome_.has_value(); });
    EXPECT_EQ(outcome_, Outcome::held);
    EXPECT_FALSE(menu.isMenuOpen()) << "it was asked, and is too late only now";
}

TEST_F(X11KeyboardClaimTest, PressesNothingWhileTheTapHasTheKeyboardOrThereIsNoServer) {
    ProbeWindow tap;
    tap.openMenu();
    isOurs_ = true;
    begin();
    EXPECT_EQ(outcome_, Outcome::free);
    EXPECT_TRUE(tap.isMenuOpen());
    outcome_.reset();
    isOurs_ = false;
    display_.endServer();
    begin();
    EXPECT_EQ(outcome_, Outcome::free);
}

TEST_F(X11KeyboardClaimTest, ANewClaimReplacesTheOldOne) {
    ProbeWindow menu;
    menu.openMenu();
    int ended = 0;
    claim_.begin([&](Outcome /*outcome*/) { ++ended; });
    begin();
    turnQtUntil([this] { return outcome_.has_value(); });
    EXPECT_EQ(ended, 0);
}

} // namespace
} // namespace pello
