#include "keyboard/hotkeys/Permissions.h"
#include "support/KeyTrace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace pello {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Optional;
using Health = HotkeyManager::Health;

const HotkeyConfiguration rightCommand{.activation = Activation::rightCommand};
const HotkeyConfiguration optionSpace{.activation = Activation::keyCombo};
const HotkeyConfiguration everything{.activation = Activation::capsLock,
                                     .combo = KeyCombo(0, KeyCombo::kCommand),
                                     .glyphCombo = KeyCombo(14, KeyCombo::kControl),
                                     .hyperEnabled = true,
                                     .replacesCommandTab = true};

constexpr const char* kInstalled = "hotkey: Event tap installed (rightCommand)";
constexpr const char* kRemoved = "hotkey: Event tap removed";
constexpr const char* kPolling = "hotkey: Polling for permission changes";

class HotkeyManagerTest : public ::testing::Test {
protected:
    testing::Keyboard keyboard;
    MemoryEventTap& tap = keyboard.tap;
    MemoryKeyPermissions& permissions = keyboard.permissions;
    HotkeyManager& manager = keyboard.manager;

    void listen(const HotkeyConfiguration& configuration = rightCommand) {
        manager.configure(configuration);
        keyboard.newLog();
    }
    void pass(int milliseconds) { keyboard.play("t:" + std::to_string(milliseconds)); }
};

TEST_F(HotkeyManagerTest, InstallsItsTapOnceForEachConfiguration) {
    EXPECT_EQ(manager.health(), Health::blocked);
    manager.configure(rightCommand);
    EXPECT_THAT(keyboard.newLog(), ElementsAre(kInstalled));
    EXPECT_TRUE(manager.isRunning());
    EXPECT_EQ(manager.health(), Health::listening);

    manager.configure(rightCommand);
    manager.start();
    EXPECT_THAT(keyboard.newLog(), IsEmpty());
    EXPECT_EQ(tap.installations, 1);

    manager.configure(everything);
    EXPECT_THAT(keyboard.newLog(), ElementsAre(kRemoved, "hotkey: Event tap installed (capsLock)"));
    manager.stop();
    manager.configure(everything);
    EXPECT_EQ(tap.installations, 3) << "the same configuration starts a stopped listener";
}

TEST_F(HotkeyManagerTest, TellsTheTapWhatItIsGoingToTake) {
    listen();
    EXPECT_THAT(tap.request(), Optional(TapRequest{}));
    listen(optionSpace);
    EXPECT_THAT(tap.request(), Optional(TapRequest{.combos = {{49, modifiers::kOption}}}));
    listen(everything);
    EXPECT_THAT(tap.request(), Optional(TapRequest{.combos = {{14, modifiers::kControl}},
                                                   .takesCommandTab = true,
                                                   .isHyperOn = true}));
    listen({.activation = Activation::capsLock});
    EXPECT_THAT(tap.request(), Optional(TapRequest{.capsLockActivates = true}));
}

TEST_F(HotkeyManagerTest, ForgetsWhatWasHeldWhenItStops) {
    listen(everything);
    EXPECT_EQ(keyboard.play("d:lcmd p:tab"), "advance+1");
    manager.stop();
    EXPECT_EQ(keyboard.play("u:lcmd t:100"), "cancel");
    EXPECT_FALSE(tap.isKeyboardHeld);
    EXPECT_THAT(keyboard.newLog(), ElementsAre("hotkey: ⌘⇥ intercepted", kRemoved));

    manager.start();
    keyboard.play("d:hyper");
    manager.configure({.activation = Activation::rightCommand, .hyperEnabled = true});
    EXPECT_EQ(keyboard.play("p:a u:hyper d:rcmd"), "d:a u:a");
    manager.stop();
    manager.start();
    EXPECT_EQ(keyboard.play("u:rcmd"), "") << "pressed before the tap was there";
}

TEST_F(HotkeyManagerTest, CountsActivationsAndTellsOfChanges) {
    int changes = 0;
    const auto subscription = manager.changed.connect([&changes] { ++changes; });
    listen();
    EXPECT_EQ(changes, 1); // it runs
    EXPECT_EQ(keyboard.play("p:rcmd p:a p:rcmd"), "activate d:a u:a activate");
    EXPECT_EQ(manager.activationCount(), 2);
    EXPECT_EQ(changes, 3);
    EXPECT_THAT(keyboard.newLog(),
                ElementsAre("hotkey: Activation fired", "hotkey: Activation fired"));
    manager.onActivate = nullptr;
    keyboard.play("p:rcmd");
    EXPECT_EQ(manager.activationCount(), 3);
}

TEST_F(HotkeyManagerTest, WaitsForAccessibilityAndThenStartsByItself) {
    permissions.accessibility = false;
    tap.canBeInstalled = false;
    manager.refreshPermissions();
    keyboard.newLog();
    EXPECT_EQ(manager.health(), Health::needsPermission);
    EXPECT_THAT(manager.lastFailure(), Optional(HasSubstr("Grant Accessibility access, and it")));

    manager.configure(optionSpace);
    pass(5000);
    EXPECT_THAT(keyboard.newLog(), IsEmpty()) << "said once, polled once";

    permissions.accessibility = true;
    tap.canBeInstalled = true;
    pass(1000);
    EXPECT_THAT(keyboard.newLog(),
                ElementsAre("hotkey: Permissions changed: Accessibility = true, Input Monitoring "
                            "= true",
                            "hotkey: Event tap installed (keyCombo)"));
    EXPECT_EQ(manager.health(), Health::listening);
    EXPECT_EQ(manager.lastFailure(), std::nullopt);
    permissions.accessibility = false;
    pass(29'000);
    EXPECT_THAT(keyboard.newLog(), IsEmpty()) << "polls no more";
    pass(1000);
    EXPECT_THAT(keyboard.newLog().front(), HasSubstr("Accessibility = false"));
}

TEST_F(HotkeyManagerTest, IsBlockedWhenRefusedThoughAllowedAndTriesOn) {
    tap.canBeInstalled = false;
    manager.configure(rightCommand);
    EXPECT_EQ(manager.health(), Health::blocked);
    EXPECT_THAT(manager.lastFailure(),
                Optional(Eq("macOS lists Pello as allowed but won't let it listen. Reset its "
                            "permissions below and grant them again.")));
    EXPECT_THAT(
        keyboard.newLog(),
        ElementsAre("hotkey error: Event tap could not be created (Accessibility trusted = true)",
                    kPolling));
    pass(3000);
    EXPECT_THAT(keyboard.newLog(), IsEmpty());
    tap.canBeInstalled = true;
    pass(1000);
    EXPECT_THAT(keyboard.newLog(), ElementsAre(kInstalled));
}

TEST_F(HotkeyManagerTest, SaysWhatTheDesktopLacksAndDoesNotWaitForIt) {
    tap.whyNever = "No keys here.";
    manager.configure(rightCommand);
    EXPECT_EQ(manager.health(), Health::blocked);
    EXPECT_THAT(manager.lastFailure(), Optional(Eq("No keys here.")));
    EXPECT_THAT(keyboard.newLog(), ElementsAre(HasSubstr("could not be created")));
}

TEST_F(HotkeyManagerTest, NeedsInputMonitoringForCapsLockAndCombosOnly) {
    listen();
    permissions.inputMonitoring = false;
    pass(30'000);
    EXPECT_THAT(keyboard.newLog(),
                ElementsAre("hotkey: Permissions changed: Accessibility = true, Input Monitoring "
                            "= false",
                            kRemoved, kInstalled));
    EXPECT_EQ(manager.health(), Health::listening);
    for (const Activation activation : {Activation::keyCombo, Activation::capsLock}) {
        listen({.activation = activation});
        EXPECT_EQ(manager.health(), Health::needsPermission);
    }
    pass(5000);
    EXPECT_THAT(keyboard.newLog(), IsEmpty());
    permissions.inputMonitoring = true;
    pass(1000);
    EXPECT_THAT(keyboard.newLog(), ElementsAre(HasSubstr("Input Monitoring = true"), kRemoved,
                                               HasSubstr("installed (capsLock)")));
    EXPECT_EQ(manager.health(), Health::listening);
}

TEST_F(HotkeyManagerTest, ArmsATapAgainThatWasSwitchedOff) {
    listen();
    keyboard.play("userinput");
    EXPECT_THAT(keyboard.newLog(),
                ElementsAre("hotkey error: Event tap disabled by user input; re-arming"));
    EXPECT_TRUE(tap.isEnabled());
    EXPECT_EQ(keyboard.play("p:rcmd"), "activate");
    keyboard.newLog();

    tap.canBeEnabled = false;
    EXPECT_EQ(keyboard.play("timeout p:rcmd"), "activate");
    EXPECT_THAT(keyboard.newLog(),
                ElementsAre("hotkey error: Event tap disabled by timeout; re-arming",
                            "hotkey: Re-arm did not stick; recreating the tap", kRemoved,
                            kInstalled, "hotkey: Activation fired"));
}

TEST_F(HotkeyManagerTest, GivesUpAtTheSecondStallWithinTenSeconds) {
    listen();
    keyboard.play("timeout t:10000 timeout");
    EXPECT_EQ(manager.health(), Health::listening);
    keyboard.newLog();
    keyboard.play("t:9999 timeout");
    EXPECT_THAT(keyboard.newLog(),
                ElementsAre("hotkey error: Event tap timed out 2 times in 10s; switching it off",
                            kRemoved));
    EXPECT_EQ(manager.health(), Health::suspended);
    EXPECT_TRUE(manager.isSuspended());
    EXPECT_FALSE(manager.isRunning());
    EXPECT_THAT(manager.lastFailure(),
                Optional(Eq("macOS kept stalling Pello's keyboard listener, so Pello switched it "
                            "off rather than slow down your keyboard and mouse. This usually means "
                            "its permissions changed while it was running. Quit and reopen "
                            "Pello.")));

    manager.configure(optionSpace);
    keyboard.session.resumed.emit("did wake");
    permissions.inputMonitoring = false;
    pass(60'000);
    manager.start();
    EXPECT_EQ(tap.installations, 1) << "only a relaunch helps";
    EXPECT_EQ(manager.health(), Health::suspended);
    EXPECT_FALSE(manager.hasInputMonitoring());
}

TEST_F(HotkeyManagerTest, CountsEveryStallUntilItStops) {
    listen();
    InputEvent stall{.kind = InputEvent::Kind::disabledByTimeout};
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(tap.happen(stall));
    }
    EXPECT_TRUE(manager.isRunning()) << "not while the tap waits for its answer";
    keyboard.newLog();
    keyboard.loop.settle();
    EXPECT_THAT(keyboard.newLog(), ElementsAre(HasSubstr("timed out 3 times in 10s"), kRemoved));
}

TEST_F(HotkeyManagerTest, LooksAfterADeadTapEveryHalfMinute) {
    listen();
    pass(20'000);
    listen(optionSpace);
    listen();
    pass(9999);
    tap.breakDown();
    EXPECT_EQ(keyboard.play("p:rcmd t:1 p:rcmd"), "activate");
    EXPECT_EQ(tap.refreshes, 1);
    EXPECT_THAT(keyboard.newLog(), ElementsAre("hotkey: Tap found dead (watchdog); re-enabling",
                                               "hotkey: Activation fired"));
    tap.canBeEnabled = false;
    tap.breakDown();
    pass(30'000);
    EXPECT_THAT(keyboard.newLog(), ElementsAre("hotkey: Tap found dead (watchdog); re-enabling",
                                               "hotkey: Tap would not re-enable; recreating it",
                                               kRemoved, kInstalled));
}

TEST_F(HotkeyManagerTest, ChecksItsTapOnWake) {
    keyboard.session.resumed.emit("did wake");
    EXPECT_THAT(keyboard.newLog(), IsEmpty()) << "not before it ever listened";
    listen();
    manager.stop();
    listen();
    keyboard.session.resumed.emit("did wake");
    EXPECT_THAT(keyboard.newLog(), ElementsAre("hotkey: did wake: tap enabled = true"));
    EXPECT_EQ(tap.refreshes, 1);

    tap.breakDown();
    tap.isSecure = true;
    keyboard.session.resumed.emit(SessionEvents::kScreensChanged);
    EXPECT_THAT(
        keyboard.newLog(),
        ElementsAre("hotkey: screen parameters changed: tap enabled = false",
                    "hotkey: Secure event input is engaged; the tap may not be seeing keystrokes",
                    "hotkey: Tap found dead (screen parameters changed); re-enabling"));
    tap.isSecure = false;
    manager.stop();
    keyboard.newLog();
    keyboard.session.resumed.emit("did wake");
    EXPECT_THAT(keyboard.newLog(), ElementsAre("hotkey: did wake: no tap installed"));
}

TEST_F(HotkeyManagerTest, LeavesNothingBehind) {
    auto other = std::make_unique<HotkeyManager>(keyboard.ports());
    other->configure(rightCommand);
    InputEvent stall{.kind = InputEvent::Kind::disabledByTimeout};
    tap.happen(stall);
    tap.happen(stall);
    other->resetPermissions([](bool) { FAIL() << "whoever asked is gone"; });
    other.reset();
    EXPECT_EQ(tap.request(), std::nullopt);
    keyboard.newLog();
    keyboard.session.resumed.emit("did wake");
    pass(60'000);
    EXPECT_THAT(keyboard.newLog(), ElementsAre(HasSubstr("tccutil"), HasSubstr("tccutil"),
                                               HasSubstr("Permissions reset")));
    EXPECT_EQ(keyboard.program.instancesOpened, 0);
}

class PermissionResetTest : public HotkeyManagerTest {
protected:
    PermissionResetTest() {
        keyboard.shell.tools["/usr/bin/tccutil"] = [this](const std::vector<std::string>& words) {
            EXPECT_FALSE(manager.isRunning());
            return Shell::Result{.status = status[words.at(1)]};
        };
        listen();
    }
    std::optional<bool> reset() {
        std::optional<bool> answer;
        manager.resetPermissions([&answer](bool succeeded) { answer = succeeded; });
        manager.configure(optionSpace); // nothing may start it meanwhile
        keyboard.loop.settle();
        return answer;
    }
    std::map<std::string, std::int32_t> status;
};

TEST_F(PermissionResetTest, MarksTheNextLaunchAndRelaunches) {
    status["ListenEvent"] = 70;
    EXPECT_THAT(reset(), Optional(true));
    EXPECT_THAT(keyboard.shell.commands,
                ElementsAre("/usr/bin/tccutil reset Accessibility is.tolva.pello",
                            "/usr/bin/tccutil reset ListenEvent is.tolva.pello"));
    EXPECT_THAT(keyboard.newLog(),
                ElementsAre(kRemoved, HasSubstr("Polling"),
                            "hotkey error: tccutil reset ListenEvent failed with status 70",
                            "hotkey: Permissions reset (Accessibility reset = true)",
                            "hotkey: Relaunching"));
    EXPECT_EQ(keyboard.program.terminations, 1);
    EXPECT_TRUE(Permissions::takeExpectedRegrant(keyboard.defaults));
    EXPECT_FALSE(Permissions::takeExpectedRegrant(keyboard.defaults));
}

TEST_F(PermissionResetTest, ListensOnWhenItIsRefused) {
    status["Accessibility"] = 1;
    EXPECT_THAT(reset(), Optional(false));
    EXPECT_THAT(keyboard.newLog(),
                ElementsAre(kRemoved, HasSubstr("Polling"),
                            "hotkey error: tccutil reset Accessibility failed with status 1",
                            "hotkey: Permissions reset (Accessibility reset = false)",
                            "hotkey: Event tap installed (keyCombo)"));
    EXPECT_THAT(keyboard.defaults.storedKeys(), IsEmpty());
    EXPECT_EQ(keyboard.program.instancesOpened, 0);
}

TEST_F(PermissionResetTest, SaysWhenItCannotReopenItself) {
    keyboard.program.openingError = "no bundle";
    EXPECT_THAT(reset(), Optional(true));
    EXPECT_EQ(keyboard.program.terminations, 0);
    EXPECT_THAT(manager.lastFailure(),
                Optional(Eq("Pello couldn't reopen itself. Quit Pello and open it again.")));
    EXPECT_EQ(keyboard.newLog().back(), "hotkey error: Relaunch failed: no bundle");
}

} // namespace
} // namespace pello
