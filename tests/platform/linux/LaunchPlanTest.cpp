#include "platform/linux/LaunchPlan.h"

#include "platform/linux/SystemdScope.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

class LaunchPlanTest : public testing::Test {
protected:
    LaunchPlanTest() {
        environment.variables = {{"PATH", (folder.path() / "bin").string()},
                                 {"HOME", folder.path().string()},
                                 {"LANG", "de_DE.UTF-8"}};
        install("app");
    }

    void install(const std::string& program) const {
        fs::permissions(folder.write("bin/" + program, "#!/bin/sh\n"), fs::perms::owner_all);
    }

    std::string installed(const std::string& program) const {
        return (folder.path() / "bin" / program).string();
    }

    std::variant<ProcessPlan, LaunchProblem> plan(const std::string& lines) const {
        return launchPlan(
            *DesktopEntry::parse("[Desktop Entry]\nName=Tool\nName[de]=Werkzeug\n" + lines),
            "/x/org.example.Tool.desktop", environment);
    }

    ProcessPlan process(const std::string& lines) const {
        return std::get<ProcessPlan>(plan(lines));
    }

    std::string problem(const std::string& lines) const {
        return std::get<LaunchProblem>(plan(lines)).reason;
    }

    TemporaryFolder folder;
    Environment environment;
};

TEST_F(LaunchPlanTest, TheCommandIsFilledInAndItsProgramFound) {
    const ProcessPlan found = process("Exec=app --name %c %i %k %U\nIcon=tool\n");
    EXPECT_EQ(found.program, installed("app"));
    EXPECT_THAT(found.arguments, ElementsAre("app", "--name", "Werkzeug", "--icon", "tool",
                                             "/x/org.example.Tool.desktop"));
    EXPECT_EQ(found.folder, folder.path());
    EXPECT_EQ(process("Exec=app\nPath=/usr\n").folder, "/usr");
    environment.variables["HOME"] = "/no/such/home";
    EXPECT_EQ(process("Exec=app\n").folder, "/");
}

TEST_F(LaunchPlanTest, WhatCannotBeStartedHasAReason) {
    EXPECT_EQ(problem("Exec=nowhere --x\n"), "the program “nowhere” is not installed");
    EXPECT_THAT(problem("Exec=\"app\n"), HasSubstr("no command that can be run"));
    EXPECT_THAT(problem(""), HasSubstr("no command that can be run"));
    EXPECT_THAT(problem("Exec=app\nTerminal=true\n"), HasSubstr("no terminal emulator"));
    EXPECT_EQ(problem("Exec=nowhere\nTerminal=true\n"), "the program “nowhere” is not installed");
}

TEST_F(LaunchPlanTest, ATerminalIsChosenAndToldTheCommand) {
    const auto arguments = [&] { return process("Exec=app 'a b'\nTerminal=true\n").arguments; };
    install("kitty");
    EXPECT_THAT(arguments(), ElementsAre(installed("kitty"), "app", "a b"));
    install("x-terminal-emulator");
    environment.variables["TERMINAL"] = "not-installed";
    EXPECT_THAT(arguments(), ElementsAre(installed("x-terminal-emulator"), "-e", "app", "a b"));
    install("my-term");
    environment.variables["TERMINAL"] = "my-term";
    EXPECT_THAT(arguments(), ElementsAre(installed("my-term"), "-e", "app", "a b"));
}

TEST_F(LaunchPlanTest, WhatConcernsThisProcessOnlyIsNotPassedOn) {
    environment.variables["DESKTOP_STARTUP_ID"] = "stale";
    environment.variables["NOTIFY_SOCKET"] = "/run/x";
    environment.variables["DISPLAY"] = ":7";
    const Environment passed = process("Exec=app\n").environment;
    EXPECT_EQ(passed.value("DISPLAY"), ":7");
    EXPECT_FALSE(passed.variables.contains("DESKTOP_STARTUP_ID"));
    EXPECT_FALSE(passed.variables.contains("NOTIFY_SOCKET"));
}

TEST_F(LaunchPlanTest, ScopesAreNamedAfterTheApplication) {
    EXPECT_EQ(scopeName("org.example.My-App", 42), "app-pello-org.example.My\\x2dApp-42.scope");
    EXPECT_EQ(scopeName("ü/", 1), "app-pello-\\xc3\\xbc\\x2f-1.scope");
    EXPECT_LE(scopeName(std::string(1000, '-'), 1).size(), 255U);
}

} // namespace
} // namespace pello
