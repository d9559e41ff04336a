#include "platform/linux/X11KeyboardClaim.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/linux/X11EventTap.h"
#include "platform/qt/QtMainLoop.h"
#include "support/PrivateDisplay.h"
#include "support/ProbeWindow.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace pello {
namespace {

using Outcome = X11KeyboardClaim::Outcome;

// Key codes of the server.
constexpr xcb_keycode_t kAlt = 64;
constexpr xcb_keycode_t kSpace = 65;
constexpr xcb_keycode_t kLetter = 38;
constexpr xcb_keycode_t kOtherLetter = 39;
constexpr xcb_keycode_t kLast = 40;

/// A tap for Alt+Space, whose handler begins a claim.
class X11KeyboardClaimTest : public testing::Test {
protected:
    X11KeyboardClaimTest() {
        const TapRequest request = {.combos = {{virtualKeys::kSpace, modifiers::kOption}}};
        EXPECT_TRUE(tap_.install(request, [this](InputEvent& event) {
            const bool isPress = event.kind == InputEvent::Kind::keyDown;
            presses_ += isPress ? 1 : 0;
            const bool isCombo = isPress && event.keyCode == virtualKeys::kSpace;
            if (isCombo) {
                begin();
            }
            return isCombo;
        }));
    }

    void begin() {
        claim_.begin(opened_.id(), [this](Outcome outcome) { outcome_ = outcome; });
    }

    /// Lets the focus come to the window, and returns the keys pressed for it until then.
    std::vector<xcb_keycode_t> openAfter(int presses) {
        opened_.takeFocus();
        turnQtUntil([&] { return presses_ == presses; });
        tap(kLast);
        return opened_.pressedUntil(kLast);
    }

    void tap(xcb_keycode_t key) {
        display_.press(key);
        display_.release(key);
    }

    PrivateDisplay display_;
    ProbeWindow opened_;
    ProbeWindow former_; // has the focus
    QtMainLoop loop_;
    X11EventTap tap_{loop_};
    X11KeyboardClaim claim_{loop_, tap_};
    std::optional<Outcome> outcome_;
    int presses_ = 0;
};

TEST_F(X11KeyboardClaimTest, WhatIsTypedWhileAWindowOpensReachesThatWindow) {
    for (const int before : {0, 4}) { // the combo is taken again as before
        display_.press(kAlt);
        display_.press(kSpace);
        turnQtUntil([this] { return outcome_.has_value(); });
        EXPECT_EQ(outcome_, Outcome::free);
        display_.release(kSpace);
        display_.release(kAlt);
        tap(kLetter);
        tap(kOtherLetter);
        EXPECT_EQ(openAfter(before + 3), (std::vector{kLetter, kOtherLetter}));
        turnQtUntil([&] { return presses_ == before + 4; });
        former_.takeFocus();
        outcome_.reset();
    }
}

TEST_F(X11KeyboardClaimTest, KeysAreDeliveredWhereTheFocusDoesNotCome) {
    begin();
    EXPECT_EQ(outcome_, Outcome::free);
    tap(kLetter);
    turnQtUntil([this] { return presses_ == 1; });
    tap(kLast);
    EXPECT_EQ(former_.pressedUntil(kLast), std::vector{kLetter});
}

TEST_F(X11KeyboardClaimTest, ClosesAMenuByEscapeAndThenKeepsKeysBack) {
    former_.openMenu();
    begin();
    EXPECT_EQ(outcome_, std::nullopt);
    turnQtUntil([&] {
        former_.isMenuOpen();
        return outcome_.has_value();
    });
    EXPECT_EQ(outcome_, Outcome::free);
    presses_ = 0;
    tap(kLetter);
    EXPECT_EQ(openAfter(1), std::vector{kLetter});
}

TEST_F(X11KeyboardClaimTest, GivesUpWhereEscapeDoesNotHelp) {
    former_.openMenu();
    begin();
    turnQtUntil([this] { return outcome_.has_value(); });
    EXPECT_EQ(outcome_, Outcome::held);
    EXPECT_FALSE(former_.isMenuOpen()) << "it was asked, and is too late only now";
}

TEST_F(X11KeyboardClaimTest, LeavesAKeyboardThatTheTapHoldsAndNeedsNeitherTapNorServer) {
    tap_.holdKeyboard();
    begin();
    EXPECT_EQ(outcome_, Outcome::free);
    tap(kLetter);
    turnQtUntil([this] { return presses_ == 1; });
    tap_.releaseKeyboard();
    tap(kLast);
    EXPECT_EQ(former_.pressedUntil(kLast), std::vector<xcb_keycode_t>{}) << "it was let go";

    outcome_.reset();
    display_.endServer();
    begin();
    EXPECT_EQ(outcome_, Outcome::free);
    outcome_.reset();
    tap_.remove();
    begin();
    EXPECT_EQ(outcome_, Outcome::free);
}

TEST_F(X11KeyboardClaimTest, ANewClaimReplacesTheOldOne) {
    former_.openMenu();
    int ended = 0;
    claim_.begin(opened_.id(), [&](Outcome /*outcome*/) { ++ended; });
    begin();
    turnQtUntil([this] { return outcome_.has_value(); });
    EXPECT_EQ(ended, 0);
}

} // namespace
} // namespace pello
