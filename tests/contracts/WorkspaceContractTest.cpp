#include "platform/linux/DesktopWorkspace.h"
#include "platform/memory/MemoryWorkspace.h"
#include "support/PrivateBus.h"
#include "support/ProgramRecords.h"

#include <QUrl>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class MemoryDriver {
public:
    Workspace& workspace() { return workspace_; }
    static fs::path application(const std::string& name) { return "/apps/" + name + ".app"; }
    std::vector<std::string> opened(std::size_t /*expected*/) const {
        std::vector<std::string> names;
        for (const fs::path& path : workspace_.openedApplications) {
            names.push_back(path.stem().string());
        }
        return names;
    }
    std::vector<std::string> addresses(std::size_t /*expected*/) const {
        return workspace_.openedAddresses;
    }
    std::vector<fs::path> revealed(std::size_t /*expected*/) const { return workspace_.revealed; }

private:
    MemoryWorkspace workspace_;
};

class DesktopDriver {
public:
    Workspace& workspace() { return workspace_; }
    fs::path application(const std::string& name) {
        const auto program = records_.addProgram("app");
        return folder_.write(name + ".desktop", "[Desktop Entry]\nType=Application\nExec=" +
                                                    program.string() + " " + name + "\n");
    }
    std::vector<std::string> opened(std::size_t expected) { return notes("app", expected); }
    std::vector<std::string> addresses(std::size_t expected) { return notes("xdg-open", expected); }
    std::vector<fs::path> revealed(std::size_t expected) {
        turnQtUntil([&] { return fileManager_.calls.size() >= expected; });
        std::vector<fs::path> files;
        for (const QDBusMessage& call : fileManager_.calls) {
            const QUrl url(call.arguments().at(0).toStringList().at(0));
            files.emplace_back(url.toLocalFile().toStdString());
        }
        return files;
    }

private:
    std::vector<std::string> notes(const std::string& program, std::size_t expected) {
        auto found =
            expected > 0 ? records_.awaitNotes(program, expected) : records_.notes(program);
        for (std::string& note : found) {
            note.pop_back(); // the line's end
        }
        return found;
    }

    TemporaryFolder folder_;
    ProgramRecords records_;
    fs::path opener_ = records_.addProgram("xdg-open");
    PrivateBus bus_;
    RecordingService fileManager_{bus_.connect(), "org.freedesktop.FileManager1",
                                  "/org/freedesktop/FileManager1"};
    DesktopWorkspace workspace_{
        {{{"PATH", records_.programs().string() + ":/usr/bin:/bin"}, {"HOME", "/"}}},
        bus_.connect()};
};

template <class Driver>
class WorkspaceContract : public QtTest {
protected:
    Driver driver;
    Workspace& workspace = driver.workspace();
    std::vector<std::string> failures;
    Subscription failing =
        workspace.failed.connect([this](const std::string& text) { failures.push_back(text); });
};

using Drivers = testing::Types<MemoryDriver, DesktopDriver>;
TYPED_TEST_SUITE(WorkspaceContract, Drivers);

TYPED_TEST(WorkspaceContract, OpensEveryApplicationItIsAskedFor) {
    this->workspace.openApplication(this->driver.application("one"));
    EXPECT_THAT(this->driver.opened(1), ElementsAre("one"));
    this->workspace.openApplication(this->driver.application("two"));
    auto opened = this->driver.opened(2);
    std::sort(opened.begin(), opened.end());
    EXPECT_THAT(opened, ElementsAre("one", "two"));
    EXPECT_THAT(this->failures, IsEmpty());
}

TYPED_TEST(WorkspaceContract, AddressesArriveUnchanged) {
    const std::string address = "https://example.org/a b?q='\"%20$(x)`y`;&ü#%";
    this->workspace.openAddress(address);
    EXPECT_THAT(this->driver.addresses(1), ElementsAre(address));
    EXPECT_THAT(this->failures, IsEmpty());
}

TYPED_TEST(WorkspaceContract, FilesAreShownWhateverTheirNames) {
    const TemporaryFolder folder;
    const fs::path file = folder.write("100% ü #1?;.txt", "");
    this->workspace.reveal(file);
    EXPECT_THAT(this->driver.revealed(1), ElementsAre(file));
    EXPECT_THAT(this->failures, IsEmpty());
}

} // namespace
} // namespace pello
