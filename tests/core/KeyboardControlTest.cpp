#include "core/controller/KeyboardControl.h"

#include "keyboard/hotkeys/HyperKey.h"
#include "support/KeyTrace.h"
#include "support/MemoryLauncher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using HyperKey::Mapping;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Successor = KeyboardControl::Successor;

constexpr Mapping kCapsLockToEscape{.source = 0x700000039, .destination = 0x700000029};

class ShownPanel final : public LauncherPanel {
public:
    void present() override { isShown_ = true; }
    void dismiss() override { isShown_ = false; }
    [[nodiscard]] bool isPresented() const override { return isShown_; }

private:
    bool isShown_ = false;
};

class KeyboardControlTest : public ::testing::Test {
protected:
    KeyboardControlTest() {
        launcher.controller.setPanel(&panel);
        keyboard.shell.tools["/usr/bin/hidutil"] = [this](const auto& arguments) {
            return answer(arguments);
        };
    }

    /// What the tool does: it lists the mappings, or takes those of its last argument.
    Shell::Result answer(const std::vector<std::string>& arguments) {
        if (arguments.at(1) == "--set") {
            mappings.clear();
            const std::vector<Mapping> known = {HyperKey::kCapsLockToF18, kCapsLockToEscape};
            for (const Mapping& mapping : known) {
                if (arguments.at(2).find(std::to_string(mapping.destination)) !=
                    std::string::npos) {
                    mappings.push_back(mapping);
                }
            }
        }
        std::string listing;
        for (const Mapping& mapping : mappings) {
            listing += "HIDKeyboardModifierMappingSrc = " + std::to_string(mapping.source) +
                       ";\nHIDKeyboardModifierMappingDst = " + std::to_string(mapping.destination) +
                       ";\n";
        }
        return {.status = 0, .output = listing};
    }

    void settle() {
        launcher.loop.settle();
        keyboard.loop.settle();
    }

    MemoryLauncher launcher;
    ShownPanel panel;
    pello::testing::Keyboard keyboard;
    std::vector<Mapping> mappings;
    KeyboardControl control{launcher.controller, keyboard.manager, keyboard.shell};
};

TEST_F(KeyboardControlTest, TheKeysOfTheSettingsOpenThePanelAtOnce) {
    EXPECT_EQ(keyboard.tap.installations, 0) << "not before it is started";
    control.start();
    keyboard.play("d:rcmd t:90 u:rcmd");
    EXPECT_TRUE(panel.isPresented());
    keyboard.play("d:rcmd t:90 u:rcmd");
    EXPECT_FALSE(panel.isPresented());

    std::function<void()> waiting;
    control.beforeOpening = [&](std::function<void()> open) { waiting = std::move(open); };
    keyboard.play("d:rcmd t:90 u:rcmd");
    EXPECT_FALSE(panel.isPresented()) << "the keyboard is not free yet";
    waiting();
    EXPECT_TRUE(panel.isPresented());
    waiting = nullptr;
    keyboard.play("d:rcmd t:90 u:rcmd");
    EXPECT_FALSE(panel.isPresented()) << "nothing has to be free for that";
    EXPECT_FALSE(waiting);
    control.beforeOpening = nullptr;

    launcher.settings.glyphCombo.set(KeyCombo(5, KeyCombo::kOption)); // ⌥G
    launcher.settings.activation.set(Activation::rightOption);
    keyboard.play("d:rcmd t:90 u:rcmd");
    EXPECT_FALSE(panel.isPresented()) << "that was before";
    keyboard.play("d:ropt t:90 u:ropt");
    EXPECT_TRUE(panel.isPresented());
    keyboard.play("d:lopt p:g u:lopt");
    EXPECT_TRUE(panel.isPresented());
    EXPECT_EQ(launcher.controller.query(), ":");
    const int installations = keyboard.tap.installations;
    launcher.settings.fontSize.set(20);
    EXPECT_EQ(keyboard.tap.installations, installations) << "other settings are nothing to it";
    control.finish(Successor::none);
    EXPECT_FALSE(keyboard.tap.request());
}

TEST_F(KeyboardControlTest, WhyNothingIsHeardStandsInThePanelOnce) {
    keyboard.tap.canBeInstalled = false;
    keyboard.tap.whyNever = "No keyboard here.";
    control.start();
    EXPECT_EQ(launcher.controller.notice(), "No keyboard here.");
    launcher.controller.dismissNotice();
    keyboard.loop.advance(std::chrono::minutes(2));
    EXPECT_EQ(launcher.controller.notice(), std::nullopt);
}

TEST_F(KeyboardControlTest, WhatWasInstalledIsRemovedAndWhatWasFoundIsLeft) {
    auto& settings = launcher.settings;
    control.start();
    settle();
    EXPECT_THAT(keyboard.shell.commands, IsEmpty()) << "nobody wants it";
    settings.capsLockIsHyper.set(true);
    settle();
    EXPECT_THAT(mappings, ElementsAre(HyperKey::kCapsLockToF18));
    EXPECT_TRUE(settings.ownsHyperMapping.get());
    EXPECT_TRUE(keyboard.manager.configuration().hyperEnabled);
    settings.capsLockIsHyper.set(false);
    settle();
    EXPECT_THAT(mappings, IsEmpty());
    EXPECT_FALSE(settings.ownsHyperMapping.get());

    mappings = {HyperKey::kCapsLockToF18}; // by another tool
    settings.capsLockIsHyper.set(true);
    settle();
    EXPECT_FALSE(settings.ownsHyperMapping.get());
    settings.capsLockIsHyper.set(false);
    settle();
    control.finish(Successor::none);
    EXPECT_THAT(mappings, ElementsAre(HyperKey::kCapsLockToF18));
}

TEST_F(KeyboardControlTest, AMappingOfAKilledRunIsStillOurs) {
    auto& settings = launcher.settings;
    mappings = {HyperKey::kCapsLockToF18};
    settings.ownsHyperMapping.set(true);
    settings.capsLockIsHyper.set(true);
    control.start();
    settle();
    control.finish(Successor::waiting);
    EXPECT_THAT(mappings, ElementsAre(HyperKey::kCapsLockToF18)) << "left to the next one";
    EXPECT_TRUE(settings.ownsHyperMapping.get());
    control.finish(Successor::none);
    EXPECT_THAT(mappings, IsEmpty());
    EXPECT_FALSE(settings.ownsHyperMapping.get());

    mappings = {HyperKey::kCapsLockToF18};
    settings.ownsHyperMapping.set(true);
    settings.capsLockIsHyper.set(false);
    KeyboardControl next(launcher.controller, keyboard.manager, keyboard.shell);
    next.start();
    settle();
    EXPECT_THAT(mappings, IsEmpty()) << "switched off while it was not running";
}

TEST_F(KeyboardControlTest, TheLastOfSeveralSwitchesCounts) {
    auto& wanted = launcher.settings.capsLockIsHyper;
    control.start();
    for (const bool last : {false, true}) {
        wanted.set(!last);
        wanted.set(last);
        wanted.set(!last);
        wanted.set(last);
        settle();
        EXPECT_EQ(mappings.size(), last ? 1U : 0U);
        EXPECT_EQ(launcher.settings.ownsHyperMapping.get(), last);
        EXPECT_EQ(control.appliedHyperMapping(), last);
    }
}

} // namespace
} // namespace pello
