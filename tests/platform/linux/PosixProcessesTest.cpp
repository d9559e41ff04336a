#include "platform/linux/PosixProcesses.h"

#include "platform/linux/FileDescriptor.h"
#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using Exited = ProcessResult::Exited;
using Failed = ProcessResult::Failed;
using End = decltype(ProcessResult::end);

class PosixProcessesTest : public QtTest {
protected:
    /// A file of this content that can be run.
    fs::path file(const std::string& content, fs::perms permissions = fs::perms::owner_all) {
        auto path = folder.write("script " + std::to_string(++count), content);
        fs::permissions(path, permissions);
        return path;
    }
    fs::path script(const std::string& commands) { return file("#!/bin/sh\n" + commands + "\n"); }

    Processes::Handle start(Processes::Program program) {
        if (program.folder.empty()) {
            program.folder = folder.path();
        }
        program.environment.emplace("PATH", "/usr/bin:/bin");
        result.reset();
        return processes->start(program, [this](const ProcessResult& r) { result = r; });
    }

    const ProcessResult& awaitResult() {
        turnQtUntil([&] { return result.has_value(); });
        return *result;
    }

    ProcessResult run(const fs::path& program, std::vector<std::string> arguments = {}) {
        start({.file = program, .arguments = std::move(arguments)});
        return awaitResult();
    }

    std::string whyNot(const fs::path& program, std::vector<std::string> arguments = {}) {
        const ProcessResult found = run(program, std::move(arguments));
        const auto* failed = std::get_if<Failed>(&found.end);
        return failed != nullptr ? failed->reason : "it runs";
    }

    TemporaryFolder folder;
    int count = 0;
    std::optional<PosixProcesses> processes{std::in_place};
    std::optional<ProcessResult> result;
};

TEST_F(PosixProcessesTest, TheProgramGetsWhatItIsGivenAndNothingElse) {
    constexpr int kLeak = 77; // not marked to be closed
    ASSERT_EQ(::dup2(STDERR_FILENO, kLeak), kLeak);
    const auto program =
        script("pwd; env | grep -v -e ^PWD= -e ^_= | sort; printf '[%s]' \"$0\" \"$@\"; echo\n"
               "cat; ls /proc/$$/fd\n"
               "set -- $(sed 's/.*) //' /proc/$$/stat); [ $3 = $$ ] && echo leads its group");
    start({.file = program,
           .arguments = {"it's \"$HOME\" `x`", "two\nlines", ""},
           .folder = "/usr",
           .environment = {{"GIVEN", "this\nand that"}}});
    ::close(kLeak);
    EXPECT_EQ(awaitResult().standardOutput,
              "/usr\nGIVEN=this\nPATH=/usr/bin:/bin\nand that\n[" + program.string() +
                  "][it's \"$HOME\" `x`][two\nlines][]\n0\n1\n10\n2\nleads its group\n");
    EXPECT_EQ(result->errorOutput, "");
}

TEST_F(PosixProcessesTest, LongArgumentsArriveUnchangedAndTooLongOnesAreRefused) {
    const std::string argument(100 * 1024, 'x');
    EXPECT_EQ(run(script("printf %s \"$1\""), {argument}).standardOutput, argument);
    EXPECT_EQ(whyNot(script(""), {std::string(10 << 20U, 'x')}),
              "its argument is longer than the system takes");
    EXPECT_THAT(whyNot(script(""), {std::string("a\0b", 3)}), HasSubstr("zero byte"));
}

TEST_F(PosixProcessesTest, TellsWhyAProgramCannotRun) {
    EXPECT_EQ(whyNot(folder.path() / "none"), "the file does not exist");
    EXPECT_EQ(whyNot(folder.path()), "it is a folder");
    EXPECT_EQ(whyNot(file("#!/bin/sh\n", fs::perms::owner_read)), "it is not executable");
    EXPECT_EQ(whyNot(file("#! /nowhere/perl -w\n")),
              "its interpreter “/nowhere/perl” does not exist");
    EXPECT_EQ(whyNot(file("#!/bin/sh\r\n")),
              "its interpreter “/bin/sh” is not found: its lines end with carriage returns");
    EXPECT_EQ(whyNot(file("#!/etc/passwd\n")), "its interpreter “/etc/passwd” is not executable");
    EXPECT_EQ(whyNot(file("#!\n")), "its “#!” line names no interpreter");
    EXPECT_EQ(whyNot(file("echo hello\n")), "it is not a program: it does not begin with “#!”");
    EXPECT_EQ(whyNot(file("")), "it is not a program: it does not begin with “#!”");
    const auto busy = script("");
    const FileDescriptor editor(::open(busy.c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_EQ(whyNot(busy), "it is still being written");
    start({.file = script(""), .folder = "/nowhere"});
    EXPECT_EQ(awaitResult().end, End(Failed{"the folder “/nowhere” cannot be entered"}));
}

TEST_F(PosixProcessesTest, KeepsTheEndOfAHugeOutputInBoundedMemory) {
    rusage before{};
    ::getrusage(RUSAGE_SELF, &before);
    const auto found = run(script("head -c 100000000 /dev/zero | tr '\\0' x\nprintf 'the end'\n"
                                  "head -c 5000000 /dev/zero | tr '\\0' y >&2; printf z >&2"));
    rusage after{};
    ::getrusage(RUSAGE_SELF, &after);
    EXPECT_EQ(found.end, End(Exited{0}));
    EXPECT_EQ(found.standardOutput, std::string(ProcessResult::kMostOutput - 7, 'x') + "the end");
    EXPECT_EQ(found.errorOutput, std::string(ProcessResult::kMostOutput - 1, 'y') + "z");
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 30 * 1024) << "kilobytes";
}

TEST_F(PosixProcessesTest, TheResultDoesNotWaitForWhatTheProgramLeavesBehind) {
    const auto daemon = run(script("echo begun; sleep 1000 & echo $! >&2"));
    EXPECT_EQ(daemon.standardOutput, "begun\n");
    const auto pid = static_cast<pid_t>(std::stoi(daemon.errorOutput));
    EXPECT_EQ(::kill(pid, SIGKILL), 0) << "it goes on";
    const auto chatty = run(script("yes & echo $! >&2"));
    EXPECT_EQ(chatty.end, End(Exited{0}));
    EXPECT_EQ(::kill(static_cast<pid_t>(std::stoi(chatty.errorOutput)), SIGKILL), 0)
        << "it can go on printing";
    EXPECT_EQ(run(script("{ sleep 0.05; echo late; } & echo early")).standardOutput,
              "early\nlate\n");
}

TEST_F(PosixProcessesTest, ClosedStreamsAreNoEnd) {
    const auto process = start({.file = script("exec >&- 2>&-; echo $$ >pid.part\n"
                                               "mv pid.part pid; exec sleep 1000")});
    std::optional<ProcessResult> other;
    processes->start({.file = script("until [ -e pid ]; do sleep 0.01; done"),
                      .folder = folder.path(),
                      .environment = {{"PATH", "/usr/bin:/bin"}}},
                     [&](const ProcessResult& found) { other = found; });
    turnQtUntil([&] { return other.has_value(); });
    EXPECT_FALSE(result.has_value());
    processes->terminate(process);
    EXPECT_EQ(awaitResult().end, End(ProcessResult::Signalled{.number = 15, .name = "SIGTERM"}));
}

TEST_F(PosixProcessesTest, TheWholeGroupEndsAndNothingIsLeftToWaitFor) {
    const auto process = start({.file = script("sleep 1000 | cat; sleep 1000")});
    processes->kill(process);
    EXPECT_EQ(awaitResult().end, End(ProcessResult::Signalled{.number = 9, .name = "SIGKILL"}));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(PosixProcessesTest, ProgramsGoOnPrintingWhenNobodyListensAnyMore) {
    const auto fifo = folder.path() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    start({.file = script("read -r go <fifo; head -c 1000000 /dev/zero && head -c 1000000 "
                          "/dev/zero >&2 && echo all >fifo")});
    processes.reset();
    {
        const FileDescriptor writing(::open(fifo.c_str(), O_WRONLY | O_CLOEXEC));
        ASSERT_EQ(::write(writing.number(), "go\n", 3), 3);
    }
    const FileDescriptor reading(::open(fifo.c_str(), O_RDONLY | O_CLOEXEC));
    std::string told(4, ' ');
    EXPECT_EQ(::read(reading.number(), told.data(), told.size()), 4);
    EXPECT_EQ(told, "all\n");
    EXPECT_FALSE(result.has_value());
}

TEST_F(PosixProcessesTest, TheEndIsKnownEvenWhereThisProcessIgnoresItsChildren) {
    const auto before = ::signal(SIGCHLD, SIG_IGN);
    EXPECT_EQ(run(script("exit 3")).end, End(Exited{3}));
    ::signal(SIGCHLD, before);
}

TEST_F(PosixProcessesTest, AProgramWhoseKeeperIsKilledHasRunAllTheSame) {
    EXPECT_EQ(run(script("kill -9 $PPID")).end,
              End(ProcessResult::Unknown{"the process that watched over it has gone"}));
}

TEST_F(PosixProcessesTest, TheOneWhoIsToldMayEndItAll) {
    bool isTold = false;
    start({.file = script("exec sleep 1")}); // goes on
    processes->start({.file = script("echo"), .folder = "/"}, [&](const ProcessResult& found) {
        processes.reset();
        isTold = found.standardOutput == "\n";
    });
    turnQtUntil([&] { return isTold; });
}

} // namespace
} // namespace pello
