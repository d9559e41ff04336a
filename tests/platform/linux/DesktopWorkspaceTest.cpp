#include "platform/linux/DesktopWorkspace.h"

#include "support/PrivateBus.h"
#include "support/ProgramRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DesktopWorkspaceTest : public QtTest {
protected:
    std::filesystem::path addEntry(const std::string& id, const std::string& lines) const {
        return folder.write(id + ".desktop",
                            "[Desktop Entry]\nType=Application\nName=Test App\n" + lines);
    }

    std::string awaitFailure() {
        turnQtUntil([&] { return !failures.empty(); });
        return failures.empty() ? "" : failures.front();
    }

    static const QDBusMessage& awaitCall(const RecordingService& service) {
        turnQtUntil([&] { return !service.calls.empty(); });
        return service.calls.front();
    }

    TemporaryFolder folder;
    ProgramRecords records;
    PrivateBus bus;
    DesktopWorkspace workspace{{{{"PATH", records.programs().string() + ":/usr/bin:/bin"},
                                 {"HOME", folder.path().string()}}},
                               bus.connect()};
    std::vector<std::string> failures;
    Subscription failing =
        workspace.failed.connect([this](const std::string& text) { failures.push_back(text); });
};

TEST_F(DesktopWorkspaceTest, AStartedApplicationGetsAScopeOfItsOwn) {
    const RecordingService systemd(bus.connect(), "org.freedesktop.systemd1",
                                   "/org/freedesktop/systemd1");
    records.addProgram("app", "echo pid=$$");
    workspace.openApplication(addEntry("my-app", "Exec=app\n"));
    const std::string notes = records.awaitNotes("app").front();
    const QDBusMessage call = awaitCall(systemd);
    EXPECT_EQ(call.member(), "StartTransientUnit");
    EXPECT_EQ(call.signature(), "ssa(sv)a(sa(sv))");
    const std::string unit = call.arguments().at(0).toString().toStdString();
    EXPECT_THAT(unit, HasSubstr("app-pello-my\\x2dapp-"));
    const std::string pid = unit.substr(unit.rfind('-') + 1, unit.rfind('.') - unit.rfind('-') - 1);
    EXPECT_THAT(notes, HasSubstr("pid=" + pid + "\n"));
}

TEST_F(DesktopWorkspaceTest, AnApplicationOnTheBusIsActivatedThere) {
    const RecordingService app(bus.connect(), "org.example.My-App", "/org/example/My_App");
    records.addProgram("app");
    workspace.openApplication(addEntry("org.example.My-App", "DBusActivatable=true\nExec=app\n"));
    const QDBusMessage call = awaitCall(app);
    EXPECT_EQ(call.interface(), "org.freedesktop.Application");
    EXPECT_EQ(call.member(), "Activate");
    EXPECT_EQ(call.signature(), "a{sv}");
    EXPECT_THAT(records.notes("app"), IsEmpty());
}

TEST_F(DesktopWorkspaceTest, AnApplicationThatIsNotOnTheBusIsStarted) {
    records.addProgram("app");
    workspace.openApplication(addEntry("org.example.App", "DBusActivatable=true\nExec=app go\n"));
    EXPECT_THAT(records.awaitNotes("app"), ElementsAre("go\n"));
    workspace.openApplication(addEntry("no.bus..name", "DBusActivatable=true\nExec=app go\n"));
    EXPECT_THAT(records.awaitNotes("app", 2), ElementsAre("go\n", "go\n"));
    EXPECT_THAT(failures, IsEmpty());
}

TEST_F(DesktopWorkspaceTest, AnApplicationThatRefusesIsNotStartedTwice) {
    RecordingService app(bus.connect(), "org.example.App", "/org/example/App");
    app.error = "org.example.Error.Broken";
    records.addProgram("app");
    workspace.openApplication(addEntry("org.example.App", "DBusActivatable=true\nExec=app\n"));
    EXPECT_EQ(awaitFailure(), "“org.example.App” could not be opened: no luck.");
    EXPECT_THAT(records.notes("app"), IsEmpty());
}

TEST_F(DesktopWorkspaceTest, FailuresAreSentences) {
    workspace.openApplication(addEntry("a", "Exec=nowhere\n"));
    workspace.openApplication(folder.path() / "missing.desktop");
    workspace.reveal(folder.path() / "gone");
    workspace.openAddress("--help");
    workspace.openAddress("");
    EXPECT_THAT(failures,
                ElementsAre("“Test App” could not be opened: the program “nowhere” is not "
                            "installed.",
                            "“missing” could not be opened: its desktop entry cannot be read.",
                            "“gone” could not be opened: it no longer exists.",
                            "The address “--help” could not be opened: it is not an address.",
                            "The address “” could not be opened: it is not an address."));
    failures.clear();
    workspace.openApplication(addEntry("b", "Exec=/bin/true\nPath=/no/such/folder\n"));
    EXPECT_THAT(awaitFailure(), HasSubstr("No such file or directory"));
}

TEST_F(DesktopWorkspaceTest, WithoutAFileManagerTheFolderIsOpened) {
    records.addProgram("xdg-open");
    workspace.reveal(folder.write("inner/file", ""));
    const std::string opened = (folder.path() / "inner").string() + "\n";
    EXPECT_THAT(records.awaitNotes("xdg-open"), ElementsAre(opened));

    const QDBusConnection nowhere("no session bus");
    DesktopWorkspace lonely({{{"PATH", records.programs().string() + ":/usr/bin:/bin"}}}, nowhere);
    lonely.reveal(folder.path() / "inner/file");
    EXPECT_THAT(records.awaitNotes("xdg-open", 2), ElementsAre(opened, opened));
}

TEST_F(DesktopWorkspaceTest, MayGoWhileAnswersAreUnderWay) {
    auto other = std::make_unique<DesktopWorkspace>(
        Environment{{{"PATH", records.programs().string() + ":/usr/bin:/bin"}}}, bus.connect());
    records.addProgram("app");
    other->openApplication(addEntry("org.example.App", "DBusActivatable=true\nExec=app\n"));
    other->openApplication(addEntry("plain", "Exec=app\n"));
    other.reset();
    EXPECT_THAT(records.awaitNotes("app"), ElementsAre("\n"));
}

} // namespace
} // namespace pello
