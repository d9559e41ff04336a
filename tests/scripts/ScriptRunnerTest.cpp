#include "scripts/ScriptRunner.h"

#include "platform/memory/MemoryDialogs.h"
#include "platform/memory/MemoryLoginEnvironment.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryNotifier.h"
#include "platform/memory/MemoryProcesses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Exited = ProcessResult::Exited;
using Notification = MemoryNotifier::Notification;
using std::chrono::milliseconds;

class ScriptRunnerTest : public testing::Test {
protected:
    ScriptRunnerTest() {
        environment.become({{"PATH", "/opt/mine:/bin"}});
        processes.programs["/s/slow.sh"] = std::nullopt;
    }

    /// The command of a script that ends like this.
    ScriptCommand ending(const std::string& name, ProcessResult result) {
        const std::filesystem::path url = "/s/" + name;
        processes.programs[url] = std::move(result);
        return {.url = url, .name = name};
    }

    /// Runs a script that ends like this.
    void runEnding(const std::string& name, ProcessResult result) {
        runner->run(ending(name, std::move(result)), "");
        loop.settle();
    }

    /// What the failures say, as "file|status|detail".
    std::vector<std::string> failures() const {
        std::vector<std::string> found;
        for (const auto& failure : log.failures()) {
            found.push_back(failure.fileName + '|' + std::to_string(failure.status) + '|' +
                            failure.detail);
        }
        return found;
    }

    MemoryMainLoop loop{Date{1000}};
    MemoryProcesses processes{loop};
    MemoryDialogs dialogs;
    MemoryNotifier notifier;
    MemoryLoginEnvironment environment;
    ScriptFailureLog log;
    const ScriptRunner::Surroundings surroundings{.loop = loop,
                                                  .processes = processes,
                                                  .dialogs = dialogs,
                                                  .notifier = notifier,
                                                  .environment = environment,
                                                  .failures = log,
                                                  .home = "/home/me"};
    std::optional<ScriptRunner> runner{surroundings};
    const ScriptCommand slow{.url = "/s/slow.sh", .name = "Slow"};
};

TEST_F(ScriptRunnerTest, TheScriptGetsItsArgumentAndTheLoginEnvironmentAtHome) {
    runner->run(slow, " it's \n\"this\" ");
    runner->run(slow, "");
    const auto& program = processes.started.at(1).program;
    EXPECT_EQ(program.file, "/s/slow.sh");
    EXPECT_THAT(program.arguments, ElementsAre(" it's \n\"this\" "));
    EXPECT_EQ(program.folder, "/home/me");
    EXPECT_EQ(program.environment, (EnvironmentVariables{{"PATH", "/opt/mine:/bin"}}));
    EXPECT_THAT(processes.started.at(2).program.arguments, IsEmpty());
}

TEST_F(ScriptRunnerTest, WhatASuccessPrintsIsANotificationAndSilenceIsNone) {
    runEnding("a", {.end = Exited{0}, .standardOutput = "1\n2\n3\n4\n5\n", .errorOutput = "e"});
    runEnding("b", {.end = Exited{0}, .standardOutput = "\n"});
    EXPECT_THAT(notifier.notifications, ElementsAre(Notification{"a", "2\n3\n4\n5"}));
    EXPECT_THAT(failures(), IsEmpty());
}

TEST_F(ScriptRunnerTest, EveryFailureIsKeptAndTold) {
    runEnding("a", {.end = Exited{2}, .standardOutput = "out", .errorOutput = "no such host\n"});
    runEnding("b", {.end = Exited{1}});
    runEnding("c", {.end = ProcessResult::Signalled{.number = 11, .name = "SIGSEGV"}});
    runEnding("d", {.end = ProcessResult::Signalled{.number = 9, .name = "SIGKILL"},
                    .errorOutput = "at work\n"});
    runEnding("e", {.end = ProcessResult::Failed{"it is not executable"}});
    runEnding("f", {.end = ProcessResult::Unknown{"the keeper has gone"}});
    EXPECT_THAT(failures(),
                ElementsAre("f|-1|How it ended is not known: the keeper has gone.",
                            "e|126|Could not be run: it is not executable.", "d|137|at work",
                            "c|139|Exited with status 139.", "b|1|Exited with status 1."));
    EXPECT_EQ(log.failures().front().date, Date{1000});
    ASSERT_EQ(notifier.notifications.size(), 6U);
    EXPECT_EQ(notifier.notifications.front(), (Notification{"a failed", "no such host"}));
}

TEST_F(ScriptRunnerTest, AConfirmationComesFirst) {
    auto careful = slow;
    careful.confirm = true;
    runner->run(careful, "x");
    runner->run(careful, "x"); // while it is being asked about
    EXPECT_EQ(dialogs.openCount(), 1U);
    EXPECT_EQ(dialogs.question().title, "Run “Slow”?");
    EXPECT_THAT(runner->running(), IsEmpty());
    dialogs.answer(Dialogs::Answer::cancelled);
    EXPECT_THAT(processes.started, IsEmpty());
    runner->run(careful, "x");
    dialogs.answer(Dialogs::Answer::confirmed);
    EXPECT_EQ(processes.started.size(), 1U);
}

TEST_F(ScriptRunnerTest, TheSameRunsOnceAtATimeUnlessRepeatedOnPurpose) {
    runner->run(slow, "x");
    runner->run(slow, "x");
    EXPECT_EQ(processes.started.size(), 1U);
    runner->run(slow, "y");
    runner->run(slow, "x", ScriptRunner::Repetition::onPurpose);
    EXPECT_EQ(processes.started.size(), 3U);
    processes.end(1, {.end = Exited{0}});
    processes.end(3, {.end = Exited{0}});
    runner->run(slow, "x");
    EXPECT_EQ(processes.started.size(), 4U);
}

TEST_F(ScriptRunnerTest, ListsWhatRunsAndSinceWhen) {
    int changes = 0;
    const auto counting = runner->changed.connect([&] { ++changes; });
    runner->run(slow, "x");
    loop.advance(milliseconds(5000));
    runner->run(slow, "y");
    const auto running = runner->running();
    ASSERT_EQ(running.size(), 2U);
    EXPECT_EQ(running[0].command, slow);
    EXPECT_EQ(running[0].argument, "x");
    EXPECT_EQ(loop.now() - running[0].since, Seconds(5));
    EXPECT_EQ(changes, 2);
    processes.end(1, {.end = Exited{0}});
    EXPECT_EQ(runner->running().size(), 1U);
    EXPECT_EQ(changes, 3);
}

TEST_F(ScriptRunnerTest, StoppingAsksAndThenInsists) {
    processes.stubborn = {"/s/slow.sh"};
    runner->run(slow, "");
    const auto id = runner->running().front().id;
    runner->stop(id);
    runner->stop(id);
    EXPECT_TRUE(runner->running().front().isStopping);
    loop.advance(milliseconds(2999));
    EXPECT_EQ(processes.started.at(1).terminations, 1);
    EXPECT_EQ(processes.started.at(1).kills, 0);
    loop.advance(milliseconds(1));
    EXPECT_EQ(processes.started.at(1).kills, 1);
    EXPECT_THAT(runner->running(), IsEmpty());
    EXPECT_THAT(failures(), IsEmpty());
    EXPECT_THAT(notifier.notifications, ElementsAre(Notification{"Slow was stopped", ""}));
    runner->stop(id); // nobody is there any more
}

TEST_F(ScriptRunnerTest, WhatEndsWhenAskedToIsNotKilled) {
    runner->run(slow, "");
    runner->stop(runner->running().front().id);
    loop.advance(milliseconds(10000));
    EXPECT_EQ(processes.started.at(1).kills, 0);
    EXPECT_THAT(failures(), IsEmpty());

    runner->run(slow, "");
    processes.stubborn.insert("/s/slow.sh");
    runner->stop(runner->running().front().id);
    processes.end(2, {.end = Exited{1}, .errorOutput = "lock left behind\n"});
    EXPECT_THAT(failures(), ElementsAre("slow.sh|1|lock left behind"));
}

TEST_F(ScriptRunnerTest, ScriptsWaitForTheLoginEnvironment) {
    MemoryLoginEnvironment unknown;
    ScriptRunner waiting({.loop = loop,
                          .processes = processes,
                          .dialogs = dialogs,
                          .notifier = notifier,
                          .environment = unknown,
                          .failures = log,
                          .home = "/"});
    waiting.run(slow, "");
    waiting.run(slow, "");
    EXPECT_THAT(processes.started, IsEmpty());
    unknown.become({{"PATH", "/late"}});
    ASSERT_EQ(processes.started.size(), 1U);
    EXPECT_EQ(processes.started.at(1).program.environment.at("PATH"), "/late");
}

TEST_F(ScriptRunnerTest, MayGoWhileAScriptRunsAndAQuestionIsOpen) {
    runner->run(slow, "");
    runner->run({.url = "/s/other", .name = "Other", .confirm = true}, "");
    runner->stop(1);
    runner.reset();
    loop.advance(milliseconds(10000));
    dialogs.answer(Dialogs::Answer::confirmed);
    EXPECT_EQ(processes.started.size(), 1U);
    EXPECT_EQ(processes.started.at(1).kills, 0);
    EXPECT_THAT(notifier.notifications, IsEmpty());
}

} // namespace
} // namespace pello
