#include "app/Diagnosis.h"

#include "app/GuideChecks.h"
#include "app/KeyLine.h"
#include "platform/ModifierFlags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const KeyboardReport kListening{.health = "listening",
                                .lastFailure = "",
                                .isAccessibilityTrusted = true,
                                .hasInputMonitoring = true,
                                .activation = "⌥Space",
                                .grabs = {{.combo = "⌥Space", .isHeld = true, .reason = ""}},
                                .hyper = {}};

const Diagnosis kHealthy{.display = X11ServerFacts{.name = "Server 1.2",
                                                   .input = "2.4",
                                                   .isInputEnough = true,
                                                   .hasKeyboardExtension = true,
                                                   .hasTestExtension = true,
                                                   .hasTray = true},
                         .session = {.hasBus = true,
                                     .hasNotifications = true,
                                     .hasTray = false,
                                     .hasAccessibility = true,
                                     .hasSound = true},
                         .keyboard = kListening};

/// What is wrong, as "subject: text".
std::vector<std::string> wrong(const Diagnosis& diagnosis) {
    std::vector<std::string> found;
    for (const Finding& finding : diagnosis.findings()) {
        if (finding.verdict == Finding::Verdict::wrong) {
            found.push_back(finding.subject + ": " + finding.text);
        }
    }
    return found;
}

TEST(DiagnosisTest, OnlyWhatIsSwitchedOnCanBeWrong) {
    EXPECT_THAT(wrong(kHealthy), IsEmpty());
    Diagnosis bare = kHealthy;
    bare.display->hasTray = false;
    bare.display->hasTestExtension = false;
    bare.session = {.hasBus = true};
    bare.usesNotifications = false;
    bare.keyboard->hyper.isInPlace = true; // another tool's
    EXPECT_THAT(wrong(bare), IsEmpty());
    bare.usesNotifications = true;
    bare.keyboard->hyper = {.isWanted = true};
    bare.keyboard->grabs.push_back(
        {.combo = "⌘⇥", .isHeld = false, .reason = "another program has it"});
    EXPECT_THAT(
        wrong(bare),
        ElementsAre("⌘⇥: another program has it: choose another combination, or free it there",
                    "Hyper key: The keyboard remap isn't in place. Toggling this off and on again "
                    "usually fixes it.",
                    "notifications: nobody shows them: install a daemon, such as dunst"));
}

TEST(DiagnosisTest, WithoutALauncherOrADisplayItSaysWhatToDo) {
    EXPECT_THAT(wrong({.display = std::nullopt,
                       .session = {.hasBus = true, .hasNotifications = true},
                       .keyboard = std::nullopt}),
                ElementsAre("X server: none: bind \"pello toggle\" to a key in the desktop's "
                            "settings",
                            "launcher: none is running: start \"pello\""));
    Diagnosis blocked = kHealthy;
    blocked.keyboard->health = "blocked";
    blocked.keyboard->lastFailure = "No XInput.";
    EXPECT_THAT(wrong(blocked), ElementsAre("listener: blocked: No XInput."));
}

TEST(KeyboardReportTest, SurvivesTheSocketInOneLine) {
    KeyboardReport report = kListening;
    report.lastFailure = "It says \"no\"\nand why.";
    report.hyper = {.isWanted = true, .isInPlace = true, .isOwn = true};
    EXPECT_EQ(report.line().find('\n'), std::string::npos);
    EXPECT_EQ(KeyboardReport::fromLine(report.line()), report);
    EXPECT_EQ(KeyboardReport::fromLine("the running launcher does not know \"report\""),
              std::nullopt);
    EXPECT_EQ(KeyboardReport::fromLine(R"({"health": 3})"), std::nullopt);
}

TEST(KeyLineTest, TellsCodesAndModifiersAndNothingThatIsTyped) {
    EXPECT_EQ(keyLine({.kind = InputEvent::Kind::keyDown,
                       .keyCode = 0,
                       .flags = modifiers::kShift | modifiers::kCapsLock,
                       .isRepeat = true}),
              "down      key 0  Shift  CapsLock  repeated");
    EXPECT_EQ(keyLine({.kind = InputEvent::Kind::mouseDown, .flags = modifiers::kCommand}),
              "click     Command");
}

TEST(GuideChecksTest, WhatIsWrongComesFirstAndShortcutsKeepTheirNames) {
    using Verdict = Finding::Verdict;
    const auto checks = guideChecks({{Verdict::ok, "XTEST", "there"},
                                     {Verdict::wrong, "⌥Space", "another program has it"},
                                     {Verdict::absent, "tray", "none"}});
    ASSERT_EQ(checks.size(), 3U);
    EXPECT_EQ(checks[0].state, GuideCheck::State::wrong);
    EXPECT_EQ(checks[0].title, "⌥Space");
    EXPECT_EQ(checks[0].finding, "another program has it");
    EXPECT_EQ(checks[1].title, "Pasting");
    EXPECT_EQ(checks[1].finding, "") << "the sign says as much";
    EXPECT_EQ(checks[2].state, GuideCheck::State::absent);
}

} // namespace
} // namespace pello
