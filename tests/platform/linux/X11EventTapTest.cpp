#include "platform/linux/X11EventTap.h"

#include "keyboard/hotkeys/HyperKey.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/linux/X11InputVersion.h"
#include "platform/linux/X11KeyCodes.h"
#include "platform/linux/X11Keyboards.h"
#include "platform/linux/X11UserKeyMapping.h"
#include "support/DesktopKeyboard.h"
#include "support/KeyTrace.h"
#include "support/ProbeWindow.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <optional>
#include <random>
#include <string>

namespace pello {
namespace {

using testing::DesktopKeyboard;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using namespace std::chrono_literals;

constexpr xcb_keycode_t kLast = 94; // pressed to see that nothing else is going to come

HotkeyConfiguration tapping(Activation activation) {
    return {.activation = activation};
}

HotkeyConfiguration combo(std::uint16_t keyCode, std::uint64_t flags) {
    return {.activation = Activation::keyCombo, .combo = KeyCombo(keyCode, flags)};
}

/// What the test needs of a desktop; a window manager where one is named.
class X11EventTapTest : public ::testing::TestWithParam<const char*> {
protected:
    X11EventTapTest() {
        if (const std::string manager = GetParam(); !manager.empty()) {
            manager_ = &display_.startManager(manager);
        }
        probe_.emplace(manager_ != nullptr ? ProbeWindow::Manager::present
                                           : ProbeWindow::Manager::none);
    }

    std::string play(const HotkeyConfiguration& configuration, std::string_view trace) {
        keyboard_.manager.configure(configuration);
        return keyboard_.play(trace);
    }

    /// Waits until the tap and the application know of all that happened.
    void catchUp() {
        keyboard_.play("p:f5");
        static_cast<void>(received());
    }

    /// Waits until a change of the keyboard or of the manager is over for the tap, too.
    void settle() {
        catchUp();
        turnQtUntil([this] { return keyboard_.x11Tap.isSettled(); });
    }

    /// What reached the application so far.
    std::vector<std::string> received() {
        keyboard_.play("p:#94"); // which is kLast
        return probe_->receivedUntil(kLast);
    }

    static void setHyper(X11UserKeyMapping& mapping, const std::vector<HyperKey::Mapping>& all) {
        EXPECT_EQ(mapping.run({"property", "--set", HyperKey::payload(all)}).status, 0);
    }

    /// The keyboard beside the one that obeys.
    X11Keyboards::Device otherKeyboard() {
        EXPECT_TRUE(X11InputVersion::of(display_.connection()).isEnough());
        return X11Keyboards::of(display_.connection()).devices.back();
    }

    static std::string keymapOf(const X11Keyboards::Device& keyboard) {
        return PrivateDisplay::run("xkbcomp -i " + std::to_string(keyboard.number) +
                                   " $DISPLAY - 2>/dev/null");
    }

    PrivateDisplay display_;
    QProcess* manager_ = nullptr;
    std::optional<ProbeWindow> probe_;
    DesktopKeyboard keyboard_{display_};
};

TEST_P(X11EventTapTest, ShortTapsOfAModifierAloneActivate) {
    const HotkeyConfiguration right = tapping(Activation::rightCommand);
    EXPECT_EQ(play(right, "d:lcmd p:rcmd u:lcmd p:lcmd"), "activate");
    for (const char* spoilt : {"t:400", "p:a", "b:1", "b:4", "p:rsh"}) {
        EXPECT_EQ(keyboard_.play(std::string("d:rcmd ") + spoilt + " u:rcmd"), "") << spoilt;
    }
    EXPECT_EQ(play(tapping(Activation::rightControl), "p:rctl p:lctl"), "activate");
    EXPECT_EQ(play(tapping(Activation::rightOption), "p:ropt p:lopt"), "activate");
}

TEST_P(X11EventTapTest, RightOptionActivatesOnLayoutsThatMakeItAThirdLevel) {
    PrivateDisplay::run("setxkbmap de");
    EXPECT_EQ(play(tapping(Activation::rightOption), "p:ropt"), "activate");
    EXPECT_EQ(play(tapping(Activation::rightOption), "d:ropt p:q u:ropt"), "");
    EXPECT_EQ(play(tapping(Activation::rightCommand), "d:ropt p:rcmd u:ropt"), "");
}

TEST_P(X11EventTapTest, CombosAreTakenFromTheFocusedApplicationWhateverIsLocked) {
    const auto optionSpace = combo(virtualKeys::kSpace, modifiers::kOption);
    const auto trace = "d:lopt d:space u:space u:lopt p:a";
    EXPECT_EQ(play(optionSpace, trace), "activate");
    EXPECT_THAT(received(), ElementsAre("d64", "u64", "d38", "u38"));
    for (const char* lock : {"Num_Lock", "Caps_Lock", "Num_Lock"}) {
        PrivateDisplay::run(std::string("xdotool key ") + lock);
        settle();
        EXPECT_EQ(keyboard_.play(trace), "activate") << lock;
        EXPECT_THAT(received(), ElementsAre("d64", "u64", "d38", "u38")) << lock;
    }
    EXPECT_EQ(keyboard_.play("d:lopt d:lsh p:space u:lsh u:lopt"), "");
    EXPECT_THAT(received(), ElementsAre("d64", "d50/08", "d65/09", "u65", "u50", "u64"));
}

TEST_P(X11EventTapTest, HeldCombosRepeatWithoutActivatingAgain) {
    PrivateDisplay::run("xset r rate 20 100");
    const auto controlA = combo(0, modifiers::kControl);
    EXPECT_EQ(play(controlA, "d:lctl d:a"), "activate");
    keyboard_.waitUntilTold(keyboard_.tap.told.size() + 3);
    const auto& last = keyboard_.tap.told.back();
    EXPECT_TRUE(last.event.isRepeat && last.isTaken);
    EXPECT_EQ(keyboard_.play("u:a u:lctl"), "");
    EXPECT_THAT(received(), ElementsAre("d37", "u37"));
}

TEST_P(X11EventTapTest, CombosThatTheWindowManagerHasTooAreTakenAlsoAfterItClaimedThemAgain) {
    HotkeyConfiguration both = combo(virtualKeys::kTab, modifiers::kOption);
    both.glyphCombo = KeyCombo(118, modifiers::kOption); // F4, which closes windows
    const auto trace = "d:lopt p:tab p:#70 u:lopt";
    EXPECT_EQ(play(both, trace), "activate glyphs");
    PrivateDisplay::run("setxkbmap de; setxkbmap us");
    settle();
    EXPECT_EQ(keyboard_.play(trace), "activate glyphs");
    EXPECT_THAT(keyboard_.x11Tap.grabs(), Each(Field(&X11Grab::state, X11Grab::State::held)));
    EXPECT_THAT(received(), ElementsAre("d64", "u64")) << "the window is open and got the rest";
}

TEST_P(X11EventTapTest, CombosSurviveAWindowManagersStart) {
    if (manager_ == nullptr) {
        return; // nobody to start again
    }
    HotkeyConfiguration both = combo(virtualKeys::kTab, modifiers::kOption);
    both.glyphCombo = KeyCombo(118, modifiers::kOption);
    keyboard_.manager.configure(both);
    PrivateDisplay::end(*manager_);
    display_.startManager(GetParam());
    probe_.emplace(
        ProbeWindow::Manager::present); // not every manager gives old windows the keyboard
    settle();
    EXPECT_EQ(keyboard_.play("d:lopt p:tab p:#70 u:lopt"), "activate glyphs");
}

TEST_P(X11EventTapTest, CommandTabHoldsTheKeyboardUntilCommandIsReleased) {
    HotkeyConfiguration switching = tapping(Activation::rightCommand);
    switching.replacesCommandTab = true;
    EXPECT_EQ(play(switching, "d:lcmd p:tab p:tab d:lsh p:tab u:lsh p:right p:3 p:q p:a u:lcmd"),
              "advance+1 advance+1 advance-1 advance+1 choose3 quit commit");
    EXPECT_EQ(keyboard_.play("d:lcmd p:tab p:esc u:lcmd p:b"), "advance+1 cancel");
    EXPECT_EQ(keyboard_.play("d:lcmd d:tab u:lcmd"), "advance+1 commit");
    EXPECT_EQ(keyboard_.play("u:tab d:lctl d:lcmd p:tab u:lcmd u:lctl"), "");
    const auto seen = received();
    EXPECT_THAT(seen, ::testing::Contains("d56"));
    EXPECT_THAT(seen, ::testing::Not(::testing::Contains("d38"))) << "a of the first session";
    EXPECT_EQ(keyboard_.play("p:rcmd"), "activate") << "nothing is stuck";
}

TEST_P(X11EventTapTest, WhileAMenuHasTheKeyboardTapsAreSeenAndCombosAreLeftToIt) {
    probe_->openMenu();
    const auto optionSpace = combo(virtualKeys::kSpace, modifiers::kOption);
    EXPECT_EQ(play(optionSpace, "d:lopt D:space U:space u:lopt"), "");
    EXPECT_THAT(received(), ElementsAre("d64", "d65/08", "u65", "u64"));
    EXPECT_EQ(play(tapping(Activation::rightCommand), "p:rcmd"), "activate");
}

TEST_P(X11EventTapTest, CapsLockActivatesOnPressAndLeavesTheLockOff) {
    PrivateDisplay::run("xdotool key Caps_Lock");
    keyboard_.manager.configure(tapping(Activation::capsLock));
    for (int press = 0; press < 3; ++press) {
        EXPECT_EQ(keyboard_.play("d:caps U:caps"), "activate") << press;
        EXPECT_THAT(PrivateDisplay::run("xset q"), ::testing::HasSubstr("Caps Lock:   off"));
    }
}

TEST_P(X11EventTapTest, HyperReachesApplicationsAndOtherProgramsGrabsWithFourModifiers) {
    const TemporaryFolder folder;
    X11UserKeyMapping mapping(folder.path());
    HotkeyConfiguration hyper = combo(40, modifiers::kShortcutMask); // Hyper-K
    hyper.hyperEnabled = true;
    keyboard_.manager.configure(hyper);
    setHyper(mapping, {HyperKey::kCapsLockToF18});
    catchUp();
    EXPECT_EQ(keyboard_.play("d:caps p:a d:lsh p:a u:lsh u:caps"), "");
    EXPECT_THAT(received(),
                ElementsAre("d66", "d38/4d", "u38", "d50/4d", "d38/4d", "u38", "u50", "u66"));
    EXPECT_EQ(keyboard_.play("d:caps p:k u:caps"), "activate");
    EXPECT_THAT(received(), ElementsAre("d66", "u66"));

    hyper.activation = Activation::capsLock;
    EXPECT_EQ(play(hyper, "d:caps t:200 u:caps"), "activate");
    EXPECT_EQ(keyboard_.play("d:caps t:400 u:caps d:caps p:a u:caps d:caps b:1 u:caps"), "");
    EXPECT_THAT(PrivateDisplay::run("xset q"), ::testing::HasSubstr("Caps Lock:   off"));

    PrivateDisplay::run("setxkbmap us");
    catchUp();
    EXPECT_EQ(keyboard_.play("d:caps U:caps"), "") << "another program took the mapping away";
}

TEST_P(X11EventTapTest, NothingSticksAndNobodyWaitsWhileTheProgramStandsStill) {
    constexpr int kKeys = 300;
    HotkeyConfiguration all = tapping(Activation::rightCommand);
    all.replacesCommandTab = true;
    EXPECT_EQ(play(all, "d:rcmd"), "");
    const std::size_t before = keyboard_.tap.told.size();
    keyboard_.play("U:rcmd");
    for (int key = 0; key < kKeys; ++key) {
        keyboard_.play("D:a U:a");
    }
    display_.press(kLast);
    EXPECT_THAT(probe_->pressedUntil(kLast), ::testing::SizeIs(kKeys + 1));
    display_.release(kLast);
    keyboard_.waitUntilTold(before + 1 + 2 * (kKeys + 1));
    EXPECT_EQ(keyboard_.x11Tap.heldModifiers(), 0U);
    EXPECT_EQ(keyboard_.play("t:10000"), "activate") << "the tap that it missed";
    EXPECT_EQ(keyboard_.play("p:rcmd"), "activate");

    EXPECT_EQ(keyboard_.play("d:lcmd p:tab U:lcmd t:100"), "advance+1 commit");
    keyboard_.waitUntilTold(keyboard_.tap.told.size() + 1);
    EXPECT_EQ(keyboard_.play("p:a p:rcmd"), "activate");
}

TEST_P(X11EventTapTest, NothingSticksWhenAKeyboardComesAndGoes) {
    HotkeyConfiguration all = tapping(Activation::rightCommand);
    all.replacesCommandTab = true;
    const X11Keyboards::Device keyboard = otherKeyboard();
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(play(all, "d:lcmd p:tab"), "advance+1");
        display_.detachKeyboard(keyboard.number);
        display_.attachKeyboard(keyboard.number);
        EXPECT_EQ(keyboard_.play("p:tab u:lcmd p:rcmd"), "advance+1 commit activate");
    }
    EXPECT_EQ(keyboard_.x11Tap.heldModifiers(), 0U);
}

TEST_P(X11EventTapTest, KeyboardsThatArePluggedInLaterHaveTheHyperKeyToo) {
    const TemporaryFolder folder;
    const std::string before = keymapOf(otherKeyboard());
    const X11Keyboards::Device keyboard = otherKeyboard();
    X11UserKeyMapping mapping(folder.path());
    display_.detachKeyboard(keyboard.number);
    setHyper(mapping, {HyperKey::kCapsLockToF18});
    EXPECT_EQ(keymapOf(keyboard), before);
    display_.attachKeyboard(keyboard.number);
    turnQtUntil([&] { return keymapOf(keyboard) != before; });
    setHyper(mapping, {});
    EXPECT_EQ(keymapOf(keyboard), before);
}

/// What the handler wants to take is what the grabs did take, whatever is pressed.
TEST_P(X11EventTapTest, TheAnswersAgreeWithWhatApplicationsGet) {
    if (manager_ != nullptr) {
        return; // it takes keys of its own
    }
    HotkeyConfiguration all = combo(virtualKeys::kSpace, modifiers::kOption);
    all.glyphCombo = KeyCombo(0, modifiers::kControl | modifiers::kShift); // A
    all.replacesCommandTab = true;
    keyboard_.manager.configure(all);
    std::mt19937 random(7);
    const auto some = [&random](const auto& values) {
        return values[std::uniform_int_distribution<std::size_t>(0, std::size(values) - 1)(random)];
    };
    constexpr const char* kModifiers[] = {"lopt", "lctl", "rsh", "lcmd", "ropt", "rcmd"};
    constexpr const char* kKeys[] = {"space", "a", "tab", "b", "esc"};
    for (int round = 0; round < 150; ++round) {
        const std::string first = some(kModifiers);
        std::string second = some(kModifiers);
        second = second == first || round % 2 == 0 ? "" : second;
        keyboard_.play("d:" + first + (second.empty() ? "" : " d:" + second));
        keyboard_.play(std::string("p:") + some(kKeys) + (second.empty() ? "" : " u:" + second) +
                       " u:" + first);
    }
    std::vector<std::uint16_t> passed;
    std::size_t taken = 0;
    for (const auto& [event, isTaken] : keyboard_.tap.told) {
        const bool isPress = event.kind == InputEvent::Kind::keyDown;
        taken += isPress && isTaken ? 1 : 0;
        if (isPress && !isTaken) {
            passed.push_back(event.keyCode);
        }
    }
    display_.press(kLast);
    std::vector<std::uint16_t> seen;
    for (const xcb_keycode_t key : probe_->pressedUntil(kLast)) {
        if (const auto code = x11Keys::virtualKey(key); x11Keys::modifierOf(code) == 0) {
            seen.push_back(code);
        }
    }
    EXPECT_EQ(seen, passed);
    EXPECT_GT(taken, 5U);
}

TEST_P(X11EventTapTest, ABrokenConnectionIsNoticedAndNothingElseHappens) {
    play(tapping(Activation::rightCommand), "p:rcmd");
    display_.endServer();
    turnQtUntil([&] { return !keyboard_.x11Tap.isEnabled(); });
    EXPECT_EQ(keyboard_.x11Tap.heldModifiers(), 0U);
    keyboard_.x11Tap.refresh();
    keyboard_.x11Tap.holdKeyboard();
    keyboard_.x11Tap.resetCapsLock();
    EXPECT_NE(keyboard_.x11Tap.obstacle(), std::nullopt);
    keyboard_.manager.stop();
    keyboard_.manager.start();
    EXPECT_EQ(keyboard_.manager.health(), HotkeyManager::Health::blocked);
}

INSTANTIATE_TEST_SUITE_P(WindowManagers, X11EventTapTest, ::testing::Values("", "openbox", "xfwm4"),
                         [](const auto& manager) {
                             const std::string name = manager.param;
                             return name.empty() ? std::string("none") : name;
                         });

} // namespace
} // namespace pello
