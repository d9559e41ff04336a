#include "ui/terminal/TerminalWindow.h"

#include "support/MemoryLauncher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <string>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class TerminalWindowTest : public testing::Test {
protected:
    TerminalWindowTest() {
        std::setlocale(LC_CTYPE, "C.UTF-8");
        launcher.install({"Safari", "Safe Mode", "Terminal"});
        window.resize({.rows = 12, .columns = 60});
    }

    /// Everything that is seen after `bytes`, line by line.
    std::string type(std::string_view bytes) {
        window.type(bytes);
        launcher.loop.settle();
        return seen();
    }

    std::string seen() {
        std::string all;
        for (int row = 0; row < shown.size().rows; ++row) {
            all += shown.text(row) + '\n';
        }
        return all;
    }

    void waitForAlmostNothing() {
        launcher.loop.advance(std::chrono::milliseconds(100));
        launcher.loop.settle();
    }

    MemoryLauncher launcher;
    TerminalDialogs dialogs{launcher.loop};
    TerminalScreen shown{TerminalSize{}};
    int paints = 0;
    int ends = 0;
    TerminalWindow window{launcher.controller,
                          launcher.scriptFailures,
                          dialogs,
                          launcher.loop,
                          {.paint =
                               [this](const TerminalScreen& screen) {
                                   shown = screen;
                                   ++paints;
                               },
                           .forget = [] {},
                           .suspend = [] {},
                           .end = [this] { ++ends; }}};
};

TEST_F(TerminalWindowTest, ReturnRunsTheTopRowOfTheFinalTextAndTheNextCanBeTyped) {
    const int before = paints;
    EXPECT_THAT(type("saf\r"), HasSubstr("Running Safari"));
    EXPECT_LE(paints - before, 2); // however many keys came at once
    EXPECT_THAT(launcher.opened(), ElementsAre("Safari"));
    EXPECT_THAT(seen(), StartsWith(" ›  Type to search"));
    type("mode\r");
    EXPECT_THAT(launcher.opened(), ElementsAre("Safari", "Safe Mode"));
    EXPECT_EQ(ends, 0);
}

TEST_F(TerminalWindowTest, KeysMoveCompleteAndRecallAsInThePanel) {
    type("saf\033[B\r");
    EXPECT_THAT(launcher.opened(), ElementsAre("Safe Mode"));
    EXPECT_THAT(type("ter\t"), StartsWith(" ›  terminal"));
    EXPECT_EQ(launcher.controller.query(), "terminal");
    type("\x15\033[1;3A");
    EXPECT_EQ(launcher.controller.query(), "saf");
    type("\033[1;3B");
    EXPECT_EQ(launcher.controller.query(), "");
    type("xafe\x01\033[3~s\x05\033[D\033[D\177\x0bt");
    EXPECT_EQ(launcher.controller.query(), "st");
}

TEST_F(TerminalWindowTest, EscapeClearsAndThenEndsOnceItIsKnownToBeOne) {
    type("saf\033");
    EXPECT_EQ(launcher.controller.query(), "saf");
    waitForAlmostNothing();
    EXPECT_EQ(launcher.controller.query(), "");
    EXPECT_EQ(ends, 0);
    type("\033");
    waitForAlmostNothing();
    EXPECT_EQ(ends, 1);
}

TEST_F(TerminalWindowTest, ControlCCopiesAnAnswerAndElseEnds) {
    launcher.quickActions.prepare({.locale = "en_US"});
    launcher.loop.settle();
    EXPECT_THAT(type("6*7\x03"), HasSubstr("✓ Copied"));
    EXPECT_EQ(launcher.pasteboard.text(), "42");
    EXPECT_EQ(ends, 0);
    type("\x15saf\x03");
    EXPECT_EQ(ends, 1);
}

TEST_F(TerminalWindowTest, QuestionsAreAskedOneByOneAndReturnAnswersNone) {
    std::string answers;
    for (const char* title : {"First?", "Second?"}) {
        dialogs.confirm({.title = title, .message = "", .confirmTitle = "Do"},
                        [&](Dialogs::Answer answer) {
                            answers += answer == Dialogs::Answer::confirmed ? 'y' : 'n';
                        });
    }
    EXPECT_THAT(type("\r"), HasSubstr("First?"));
    EXPECT_THAT(type("y"), HasSubstr("Second?"));
    EXPECT_THAT(type("n"), Not(HasSubstr("Second?")));
    EXPECT_EQ(answers, "yn");
    type("saf");
    EXPECT_EQ(launcher.controller.query(), "saf");
}

TEST_F(TerminalWindowTest, FailuresAreBelowTheRowsAndCanBeReadAndDismissed) {
    type("terminal");
    launcher.scriptFailures.record(
        {.name = "Post", .fileName = "post", .status = 3, .detail = "no\nnetwork"});
    launcher.loop.settle();
    EXPECT_THAT(seen(), HasSubstr("Post failed  no "));
    EXPECT_THAT(type("\033[B\033[B\r"), HasSubstr("network"));
    EXPECT_THAT(type("\x03"), Not(HasSubstr("network")));
    EXPECT_THAT(type("\033[3~"), Not(HasSubstr("Post failed")));
    EXPECT_TRUE(launcher.scriptFailures.failures().empty());
    EXPECT_EQ(ends, 0);
}

TEST_F(TerminalWindowTest, AScriptsArgumentIsAskedFor) {
    launcher.addScript("post", "#!/bin/sh\n# pello.name: Post\n# pello.argument: required\n");
    EXPECT_THAT(type("post\r"), HasSubstr("Post:"));
    type("hello\r");
    EXPECT_THAT(launcher.scriptRuns, ElementsAre("Post|hello"));
    type("post\r");
    EXPECT_TRUE(launcher.controller.argumentPrompt());
    type("\177");
    EXPECT_FALSE(launcher.controller.argumentPrompt());
}

} // namespace
} // namespace pello
