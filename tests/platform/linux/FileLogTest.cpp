#include "platform/linux/FileLog.h"

#include "platform/linux/SystemLog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::MatchesRegex;

class FileLogTest : public testing::Test {
protected:
    void write(std::string_view message) { log.write(LogCategory::panel, LogLevel::info, message); }

    [[nodiscard]] static std::string contentOf(const fs::path& name) {
        std::ostringstream content;
        content << std::ifstream(name, std::ios::binary).rdbuf();
        return content.str();
    }
    [[nodiscard]] static std::size_t lineCount(const fs::path& name) {
        const std::string content = contentOf(name);
        return static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
    }

    TemporaryFolder folder;
    fs::path file = folder.path() / "state/pello/pello.log";
    fs::path older = file.string() + ".1";
    FileLog log{file};
};

TEST_F(FileLogTest, ALineIsTimeCategoryAndHarmlessText) {
    write("tab\there\n\x1b[2J \x7f\xc2\x9b|\xffü");
    EXPECT_THAT(contentOf(file),
                MatchesRegex("20[0-9]{2}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z panel: "
                             "tab.x09here.x0a.x1b.2J .x7f.x9b.\uFFFDü\n"));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(FileLogTest, IsBoundedWhateverIsWritten) {
    const std::string longest(5 * FileLog::kMaximumFileBytes, 'x');
    write(longest);
    EXPECT_THAT(contentOf(file), EndsWith("x…\n"));
    constexpr std::size_t kEnough = 3 * FileLog::kMaximumFileBytes / FileLog::kMaximumMessageBytes;
    for (std::size_t i = 0; i < kEnough; ++i) {
        write(longest);
    }
    EXPECT_LE(fs::file_size(file), FileLog::kMaximumFileBytes);
    EXPECT_LE(fs::file_size(older), FileLog::kMaximumFileBytes);
    EXPECT_GT(fs::file_size(older), FileLog::kMaximumFileBytes / 2);
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 2);
}

TEST_F(FileLogTest, ProcessesThatFillItAtATimeRotateItOnce) {
    constexpr std::size_t kProcesses = 4;
    constexpr std::size_t kEach = 20;
    const std::string message(FileLog::kMaximumMessageBytes - 100, 'y'); // 80 of them: 1.25 MiB
    for (std::size_t process = 0; process < kProcesses; ++process) {
        if (::fork() == 0) {
            for (std::size_t i = 0; i < kEach; ++i) {
                write(message);
            }
            ::_exit(0);
        }
    }
    while (::wait(nullptr) > 0) {
    }
    EXPECT_EQ(lineCount(file) + lineCount(older), kProcesses * kEach);
}

TEST_F(FileLogTest, IsGivenUpSilentlyWhereItCannotBe) {
    folder.write("state", "a file where the folder should be");
    write("lost");
    fs::remove(folder.path() / "state");
    write("kept");
    EXPECT_EQ(lineCount(file), 1U);
}

TEST_F(FileLogTest, TheSystemLogIsTheFileWhereNoJournalListens) {
    XdgFolders folders;
    folders.state = folder.path() / "state";
    const fs::path socketPath = folder.path() / "socket";
    makeSystemLog(folders, socketPath)->write(LogCategory::panel, LogLevel::info, "to the file");
    EXPECT_EQ(lineCount(file), 1U);

    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socketPath.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int journal = ::socket(AF_UNIX, SOCK_DGRAM, 0);
    ASSERT_GE(journal, 0);
    ASSERT_EQ(::bind(journal, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    makeSystemLog(folders, socketPath)->write(LogCategory::panel, LogLevel::info, "to the journal");
    EXPECT_EQ(lineCount(file), 1U);
    ::close(journal);
}

} // namespace
} // namespace pello
