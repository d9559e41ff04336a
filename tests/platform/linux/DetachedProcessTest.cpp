#include "platform/linux/DetachedProcess.h"

#include "support/ProgramRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace pello {
namespace {

using testing::HasSubstr;
using testing::Not;

class DetachedProcessTest : public QtTest {
protected:
    static ProcessPlan plan(const std::filesystem::path& program) {
        return {.program = program,
                .arguments = {program.string(), "one", "two words"},
                .environment = {{{"PATH", "/usr/bin:/bin"}, {"GIVEN", "this"}}},
                .folder = "/usr"};
    }

    /// The error with which a started program failed; 0 when it runs.
    static int outcome(const StartedProcess& started) {
        int error = 0;
        while (::read(started.outcome, &error, sizeof error) < 0 && errno == EINTR) {
        }
        ::close(started.outcome);
        return error;
    }

    ProgramRecords records;
};

TEST_F(DetachedProcessTest, TheProgramGetsWhatWasPlannedAndNothingElse) {
    struct sigaction before{};
    struct sigaction ignore{};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGUSR1, &ignore, &before);
    constexpr int kLeak = 77; // not marked to be closed
    ASSERT_EQ(::dup2(STDERR_FILENO, kLeak), kLeak);
    const auto program = records.addProgram(
        "app",
        "echo ppid=$PPID; echo sid=$(cut -d' ' -f6 /proc/$$/stat) pid=$$; pwd; env; "
        "readlink /proc/$$/fd/0; ls /proc/$$/fd | sed s/^/fd=/; "
        // Read by the shell itself: while it waits for a child, a shell blocks signals.
        "while read -r name mask; do case $name in SigBlk:|SigIgn:) echo $name $mask;; esac; "
        "done </proc/$$/status");
    const StartedProcess started = startDetached(plan(program));
    ::close(kLeak);
    ::sigaction(SIGUSR1, &before, nullptr);
    ASSERT_GT(started.pid, 0);
    EXPECT_EQ(outcome(started), 0);
    const std::string notes = records.awaitNotes("app").front();
    EXPECT_THAT(notes, HasSubstr("one\ntwo words\n"));
    EXPECT_THAT(notes, Not(HasSubstr("ppid=" + std::to_string(::getpid()) + "\n")));
    const std::string pid = std::to_string(started.pid);
    EXPECT_THAT(notes, HasSubstr("sid=" + pid + " pid=" + pid + "\n/usr\n"));
    EXPECT_THAT(notes, HasSubstr("GIVEN=this\n"));
    EXPECT_THAT(notes, Not(HasSubstr("HOME=")));
    EXPECT_THAT(notes, HasSubstr("/dev/null\nfd=0\n"));
    EXPECT_THAT(notes, Not(HasSubstr("fd=77")));
    EXPECT_THAT(notes, HasSubstr("SigBlk: 0000000000000000\nSigIgn: 0000000000000000\n"));
    EXPECT_LT(::waitpid(started.pid, nullptr, WNOHANG), 0) << "no child of this process";
}

TEST_F(DetachedProcessTest, TheProgramOutlivesItsStarterAndLeavesItsOutputAlone) {
    const auto gate = records.programs() / "gate";
    const auto program = records.addProgram("app", "echo spoken >&2; cat '" + gate.string() + "'");
    ASSERT_EQ(::mkfifo(gate.c_str(), 0600), 0);
    std::array<int, 2> output{};
    ASSERT_EQ(::pipe(output.data()), 0);
    const ProcessPlan planned = plan(program);
    const pid_t starter = ::fork();
    if (starter == 0) {
        ::dup2(output[1], STDOUT_FILENO);
        ::dup2(output[1], STDERR_FILENO);
        ::_exit(outcome(startDetached(planned)));
    }
    ::close(output[1]);
    int status = -1;
    ASSERT_EQ(::waitpid(starter, &status, 0), starter);
    EXPECT_EQ(status, 0);
    char byte = 0;
    EXPECT_EQ(::read(output[0], &byte, 1), 0) << "nobody holds the output, nothing was written";
    ::close(output[0]);
    std::ofstream(gate) << "opened after the starter's end\n"; // waits for the program's reading
    EXPECT_THAT(records.awaitNotes("app").front(), HasSubstr("opened after the starter's end"));
}

TEST_F(DetachedProcessTest, WhatDoesNotRunTellsWhy) {
    EXPECT_EQ(outcome(startDetached(plan("/no/such/program"))), ENOENT);
    const auto program = records.addProgram("app");
    std::filesystem::permissions(program, std::filesystem::perms::owner_read);
    EXPECT_EQ(outcome(startDetached(plan(program))), EACCES);
    ProcessPlan elsewhere = plan("/bin/true");
    elsewhere.folder = "/no/such/folder";
    EXPECT_EQ(outcome(startDetached(elsewhere)), ENOENT);
}

} // namespace
} // namespace pello
