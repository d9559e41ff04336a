#include "platform/posix/ShellLoginEnvironment.h"

#include "platform/linux/PosixProcesses.h"
#include "platform/memory/MemoryLog.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryProcesses.h"
#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Key;
using testing::Not;
using testing::Pair;
using testing::SizeIs;

class ShellLoginEnvironmentTest : public QtTest {
protected:
    /// The environment by a real shell, in a home folder of its own.
    EnvironmentVariables by(const fs::path& shell) {
        std::optional<EnvironmentVariables> found;
        ShellLoginEnvironment environment(processes, loop, log,
                                          {.shell = shell,
                                           .home = home.path(),
                                           .inherited = {{"HOME", home.path().string()},
                                                         {"PATH", "/usr/bin:/bin"},
                                                         {"GIVEN", "before"}}});
        environment.whenKnown([&](const EnvironmentVariables& variables) { found = variables; });
        turnQtUntil([&] { return found.has_value(); });
        return *found;
    }

    fs::path shell(const std::string& commands) {
        auto file = home.write("shell", "#!/bin/sh\n" + commands + "\n");
        fs::permissions(file, fs::perms::owner_all);
        return file;
    }

    TemporaryFolder home;
    PosixProcesses processes;
    MemoryMainLoop loop;
    MemoryLog log;
};

TEST_F(ShellLoginEnvironmentTest, ReadsWhatTheProfileMakesWhateverItPrints) {
    const std::string profile = "echo 'Good morning!'; echo >&2; printf 'no=line end'\n"
                                "export GIVEN=\"now: ü\n two lines\" MINE='a=b'\n"
                                "trap 'echo Good bye; env -0' EXIT\n";
    for (const auto& [file, program] :
         {std::pair(".profile", "/bin/sh"), std::pair(".bash_profile", "/bin/bash")}) {
        home.write(file, profile);
        const auto variables = by(program);
        EXPECT_THAT(variables, Contains(Pair("GIVEN", "now: ü\n two lines"))) << program;
        EXPECT_THAT(variables, Contains(Pair("MINE", "a=b")));
        for (const char* name : {"_", "PWD", "SHLVL"}) {
            EXPECT_THAT(variables, Not(Contains(Key(name))));
        }
    }
}

TEST_F(ShellLoginEnvironmentTest, OtherShellsUnderstandTheQuestion) {
    if (fs::exists("/usr/bin/fish")) {
        home.write(".config/fish/config.fish", "echo hello\nset -gx MINE (status is-login; "
                                               "and echo login)\n");
        EXPECT_THAT(by("/usr/bin/fish"), Contains(Pair("MINE", "login")));
    }
    if (fs::exists("/usr/bin/zsh")) {
        home.write(".zprofile", "export MINE=zsh\n");
        EXPECT_THAT(by("/usr/bin/zsh"), Contains(Pair("MINE", "zsh")));
    }
    for (const char* csh : {"/usr/bin/tcsh", "/bin/csh"}) {
        if (fs::exists(csh)) {
            home.write(".login", "setenv MINE csh; setenv PATH /opt/mine:$PATH\n");
            EXPECT_THAT(by(csh), IsSupersetOf({Pair("MINE", "csh"),
                                               Pair("PATH", "/opt/mine:/usr/bin:/bin")}))
                << csh;
        }
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(ShellLoginEnvironmentTest, TheInheritedOneStandsInForWhatNoShellTells) {
    for (const fs::path& none : {fs::path("/usr/sbin/nologin"), fs::path("/bin/false"),
                                 fs::path("/nowhere/sh"), shell("echo PATH=/junk")}) {
        EXPECT_THAT(by(none), Contains(Pair("GIVEN", "before"))) << none;
    }
    EXPECT_THAT(log.lines(), SizeIs(4));
    EXPECT_THAT(log.lines(),
                Contains("panel error: Scripts run in the environment of this program: "
                         "the login shell “/nowhere/sh” did not tell its own, the file "
                         "does not exist."));
}

TEST_F(ShellLoginEnvironmentTest, AShellThatTakesTooLongIsEnded) {
    MemoryProcesses programs(loop);
    programs.programs["/bin/slow"] = std::nullopt;
    ShellLoginEnvironment environment(
        programs, loop, log, {.shell = "/bin/slow", .home = "/", .inherited = {{"PATH", "/bin"}}});
    int times = 0;
    environment.whenKnown([&](const EnvironmentVariables&) { ++times; });
    loop.advance(std::chrono::milliseconds(1999));
    EXPECT_EQ(times, 0);
    loop.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(times, 1);
    EXPECT_EQ(programs.started.at(1).kills, 1);
    loop.settle();
    EXPECT_THAT(log.lines(),
                ElementsAre(HasSubstr("“/bin/slow” did not tell its own, it took too")));
    environment.whenKnown([&](const EnvironmentVariables&) { ++times; });
    EXPECT_EQ(times, 2);
    EXPECT_EQ(programs.started.at(1).program.calledAs, "-slow");
}

TEST(PrintedEnvironmentTest, IsThereCompletelyOrNotAtAll) {
    using std::string_view_literals::operator""sv;
    EXPECT_EQ(printedEnvironment(""), std::nullopt);
    EXPECT_EQ(printedEnvironment("--8<-- pello environment --8<--\nPATH=/bin\0"sv), std::nullopt);
    EXPECT_EQ(printedEnvironment("x--8<-- pello environment --8<--\nA=1\0B\0C=\0--8<-- pello "
                                 "environment --8<--\nbye"sv),
              (EnvironmentVariables{{"A", "1"}, {"C", ""}}));
}

} // namespace
} // namespace pello
