#include "support/TemporaryFolder.h"

#include <QProcess>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>

namespace pello {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

/// What a run of the program left.
struct Outcome {
    int status = -1;
    std::string output;
    std::string complaint;
};

/// The built program, in a home of its own with a few applications.
class CommandsTest : public testing::Test {
protected:
    CommandsTest() {
        addApplication("safari", "Safari");
        addApplication("safe-mode", "Safe Mode");
    }

    void addApplication(const std::string& id, const std::string& name) const {
        home.write("data/applications/" + id + ".desktop",
                   "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=touch " +
                       (home.path() / (id + ".ran")).string() + "\n");
    }

    [[nodiscard]] Outcome pello(const QStringList& arguments, const QByteArray& input = {}) const {
        QProcessEnvironment environment;
        environment.insert("PATH", qEnvironmentVariable("PATH"));
        const std::initializer_list<std::pair<const char*, const char*>> places = {
            {"HOME", ""},
            {"XDG_DATA_HOME", "data"},
            {"XDG_DATA_DIRS", "none"},
            {"XDG_CONFIG_HOME", "config"},
            {"XDG_STATE_HOME", "state"},
            {"XDG_RUNTIME_DIR", ""}};
        for (const auto& [variable, place] : places) {
            environment.insert(variable, QString::fromStdString((home.path() / place).string()));
        }
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(PELLO_PROGRAM, arguments);
        program.write(input);
        program.closeWriteChannel();
        program.waitForFinished();
        return {.status = program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
                .output = program.readAllStandardOutput().toStdString(),
                .complaint = program.readAllStandardError().toStdString()};
    }

    TemporaryFolder home;
};

TEST_F(CommandsTest, QueryPrintsInstalledApplicationsBestFirst) {
    const Outcome found = pello({"query", "saf"});
    EXPECT_EQ(found.status, 0);
    EXPECT_EQ(found.output, "Safari\t~/data/applications\nSafe Mode\t~/data/applications\n"
                            "Search for “saf”\tDuckDuckGo\n");
    EXPECT_THAT(pello({"query", "safe", "m"}).output,
                StartsWith("Safe Mode\t~/data/applications\nSearch for"));
    EXPECT_EQ(pello({"query", "saf", "--limit", "1"}).output, "Safari\t~/data/applications\n");
    EXPECT_THAT(pello({"query", "saf", "--explain"}).output,
                AllOf(HasSubstr("title \"Safari\""), HasSubstr("learned: nothing")));
}

TEST_F(CommandsTest, QueryThatMatchesNothingSaysSoByItsStatus) {
    const Outcome nothing = pello({"query", " "});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_THAT(nothing.output, IsEmpty());
    const Outcome json = pello({"query", "saf", "--limit", "0", "--json"});
    EXPECT_EQ(json.status, 1);
    EXPECT_THAT(nlohmann::json::parse(json.output)["results"], IsEmpty());
}

TEST_F(CommandsTest, AnswersArePrintedAlone) {
    EXPECT_EQ(pello({"calc", "10/4", "--locale", "de_DE"}).output, "2,5\n");
    EXPECT_EQ(pello({"convert", "1 day", "--locale", "en_US"}).output, "24 hr\n");
    const Outcome nothing = pello({"calc", "2+"});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_EQ(nothing.output + nothing.complaint, "");
    EXPECT_THAT(pello({"query", "72 f", "--locale", "en_US"}).output,
                StartsWith("22.2222°C\t72 degrees Fahrenheit in degrees Celsius\n"));
}

TEST_F(CommandsTest, ScriptsAreListedRunAndComplainedAbout) {
    const auto script = home.write("data/Pello/Scripts/greet.sh",
                                   "#!/bin/sh\n# pello.keyword: hi\n# pello.argument: optional\n"
                                   "echo \"<$1>\"; pwd; exit 7\n");
    home.write("data/Pello/Scripts/plain", "echo\n");
    std::filesystem::permissions(script, std::filesystem::perms(0700));
    const Outcome list = pello({"scripts"});
    EXPECT_EQ(list.output, "Greet\thi\toptional\t~/data/Pello/Scripts/greet.sh\n");
    EXPECT_EQ(list.complaint, "pello: plain: it is not executable\n");
    const Outcome run = pello({"scripts", "run", "hi", "a  b"});
    EXPECT_EQ(run.status, 7);
    EXPECT_THAT(run.output, StartsWith("<a  b>\n" + home.path().string()));
    EXPECT_EQ(pello({"scripts", "run", "nobody"}).status, 2);
    EXPECT_EQ(pello({"scripts", "run", "plain"}).complaint, "pello: plain: it is not executable\n");
    std::filesystem::permissions(
        home.write("data/Pello/Scripts/odd", "#!/no/such\n# pello.argument: required\n"),
        std::filesystem::perms(0700));
    EXPECT_EQ(pello({"scripts", "run", "odd"}).complaint, "pello: Odd needs an argument\n");
    const Outcome odd = pello({"scripts", "run", "odd", "x"});
    EXPECT_EQ(odd.status, 126);
    EXPECT_EQ(odd.complaint,
              "pello: Odd could not be run: its interpreter “/no/such” does not exist\n");
    EXPECT_THAT(pello({"query", "hi there", "--limit", "1"}).output,
                StartsWith("Greet: there\tgreet.sh\n"));
}

TEST_F(CommandsTest, QueryAsJsonNamesTheFile) {
    const auto json = nlohmann::json::parse(pello({"query", "safari", "--json"}).output);
    const auto& first = json["results"][0];
    const std::string file = (home.path() / "data/applications/safari.desktop").string();
    EXPECT_EQ(first["id"], "app:" + file);
    EXPECT_EQ(first["path"], file);
    EXPECT_EQ(first["kind"], "application");
    EXPECT_EQ(first["titleMatches"], nlohmann::json({0, 1, 2, 3, 4, 5}));
}

TEST_F(CommandsTest, GlyphsArePrintedWithTheirNames) {
    EXPECT_EQ(pello({"glyph", "fire", "engine", "--limit", "1"}).output, "🚒\tfire engine\n");
    const auto json = nlohmann::json::parse(pello({"glyph", "cmd", "--json"}).output);
    EXPECT_EQ(json["results"][0]["glyph"], "⌘");
    EXPECT_EQ(json["results"][0]["id"], "glyph:2318");
    EXPECT_EQ(pello({"glyph", "qqqq"}).status, 1);
}

TEST_F(CommandsTest, SettingsLastAndRefuseNonsense) {
    EXPECT_EQ(pello({"settings", "get", "maximumResults"}).output, "8\n");
    EXPECT_EQ(pello({"settings", "set", "maximumResults", "1"}).status, 0);
    EXPECT_EQ(pello({"settings", "get", "maximumResults"}).output, "1\n");
    EXPECT_THAT(pello({"query", "saf"}).output,
                StartsWith("Safari\t~/data/applications\nSearch for"));
    const Outcome refused = pello({"settings", "set", "maximumResults", "many"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.complaint, HasSubstr("maximumResults"));
    EXPECT_EQ(pello({"settings", "get", "maximumResults"}).output, "1\n");
    EXPECT_EQ(pello({"settings", "reset", "maximumResults"}).status, 0);
    EXPECT_THAT(pello({"settings", "list"}).output, HasSubstr("\nmaximumResults = 8\n"));
    EXPECT_EQ(pello({"settings", "get", "colour"}).status, 2);
    home.write("config/autostart", "not a folder");
    EXPECT_EQ(pello({"settings", "set", "launchAtLogin", "true"}).status, 1);
}

TEST_F(CommandsTest, SettingsMoveToAnotherHomeByAFileOrAPipe) {
    EXPECT_EQ(pello({"settings", "set", "maximumResults", "5"}).status, 0);
    const QString file = QString::fromStdString((home.path() / "settings.json").string());
    EXPECT_EQ(pello({"settings", "export", file}).status, 0);
    EXPECT_EQ(pello({"settings", "reset", "maximumResults"}).status, 0);
    EXPECT_EQ(pello({"settings", "import", file}).status, 0);
    EXPECT_EQ(pello({"settings", "get", "maximumResults"}).output, "5\n");
    std::ifstream exported(home.path() / "settings.json");
    EXPECT_EQ(pello({"settings", "export"}).output,
              std::string(std::istreambuf_iterator<char>(exported), {}));

    const Outcome refused =
        pello({"settings", "import"}, R"({"maximumResults": 9, "fontSize": "big"})");
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.complaint, HasSubstr("\"fontSize\" takes"));
    EXPECT_EQ(pello({"settings", "get", "maximumResults"}).output, "5\n");
    EXPECT_EQ(pello({"settings", "import", "/no/such/file"}).status, 1);
    EXPECT_EQ(pello({"settings", "export", "/no/such/folder/file"}).status, 1);
}

TEST_F(CommandsTest, WhatWasLogged) {
    const Outcome nothing = pello({"logs"});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_THAT(nothing.complaint, HasSubstr("state/pello/pello.log"));
    home.write("state/pello/pello.log.1", "older\n");
    home.write("state/pello/pello.log", "newer\n");
    EXPECT_EQ(pello({"logs"}).output, "older\nnewer\n");
}

TEST_F(CommandsTest, SettingsThatCannotBeReadAreSetAsideAndTold) {
    home.write("config/pello/is.tolva.pello.plist", "<plist><dict><key>");
    const Outcome outcome = pello({"settings", "get", "fontSize"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "16.0\n");
    EXPECT_THAT(outcome.complaint, StartsWith("pello: "));
    int kept = 0;
    for (const auto& file : std::filesystem::directory_iterator(home.path() / "config/pello")) {
        kept += std::filesystem::file_size(file) == 18 ? 1 : 0;
    }
    EXPECT_EQ(kept, 1) << "the unreadable file is still there, under another name";
}

TEST_F(CommandsTest, WithoutALauncherRunningItsVerbsSaySo) {
    const Outcome outcome = pello({"toggle"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.complaint, "pello: no launcher is running\n");
}

TEST_F(CommandsTest, WhatDesktopsStartAtLoginIsTheProgramThatUsersCall) {
    EXPECT_EQ(pello({"settings", "set", "launchAtLogin", "true"}).status, 0);
    std::ifstream entry(home.path() / "config/autostart/is.tolva.pello.desktop");
    const std::string text(std::istreambuf_iterator<char>(entry), {});
    EXPECT_THAT(text, HasSubstr("Exec=\"" PELLO_PROGRAM "\"\n"));
}

TEST_F(CommandsTest, WithoutADisplayTheLauncherSaysSoAndNamesTheTerminal) {
    const Outcome outcome = pello({"--show"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.complaint, "pello: There is no display. \"pello terminal\" needs none.\n");
}

TEST_F(CommandsTest, WhatTheTerminalRunsIsLearned) {
    const Outcome outcome = pello({"terminal"}, "saf\n2\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("Running Safe Mode"));
    EXPECT_EQ(pello({"query", "saf", "--limit", "1"}).output, "Safe Mode\t~/data/applications\n");
    EXPECT_THAT(pello({"query", "saf", "--explain"}).output, HasSubstr("+400.00"));

    EXPECT_EQ(pello({"history"}).output, "saf\n");
    EXPECT_EQ(pello({"history", "clear"}).status, 0);
    EXPECT_EQ(pello({"history"}).status, 1);
    const std::string learned = pello({"learned"}).output;
    const std::string id = learned.substr(0, learned.find('\t'));
    EXPECT_THAT(learned, MatchesRegex("app:[^\t]*safe-mode.desktop\t1\t20[^\t]*Z\t\"saf\"\n"));
    EXPECT_EQ(pello({"learned", "forget", QString::fromStdString(id)}).status, 0);
    EXPECT_THAT(pello({"learned", "list"}).output, IsEmpty());
    EXPECT_EQ(pello({"query", "saf", "--limit", "1"}).output, "Safari\t~/data/applications\n");
    const Outcome unknown = pello({"learned", "forget", QString::fromStdString(id)});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.complaint, "pello: nothing was learned about \"" + id + "\"\n");
}

} // namespace
} // namespace pello
