#include "app/ControlServer.h"
#include "app/client/ControlClient.h"
#include "support/TemporaryFolder.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLocalSocket>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <array>
#include <cstring>
#include <future>
#include <unistd.h>

namespace pello {
namespace {

class ControlSocketTest : public testing::Test {
protected:
    /// Asks from another thread while this one serves.
    std::optional<std::string> ask(const std::string& verb) {
        auto answer =
            std::async(std::launch::async, [&] { return askRunningLauncher(path, verb); });
        while (answer.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
        return answer.get();
    }

    int argc = 1;
    std::string name = "test";
    std::array<char*, 2> argv = {name.data(), nullptr};
    QCoreApplication application{argc, argv.data()};
    TemporaryFolder folder;
    std::string path = (folder.path() / "pello.sock").string();
    ControlServer server{[](std::string_view verb) {
        return ControlServer::Answer{.line = "did " + std::string(verb)};
    }};
};

TEST_F(ControlSocketTest, AVerbIsAnsweredByALine) {
    ASSERT_TRUE(server.listen(path));
    EXPECT_EQ(ask("toggle"), "did toggle");
    EXPECT_EQ(ask("quit"), "did quit");
}

TEST_F(ControlSocketTest, OnlyTheUserMayConnect) {
    ASSERT_TRUE(server.listen(path));
    struct stat status = {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & (S_IRWXG | S_IRWXO), 0U);
}

TEST_F(ControlSocketTest, NobodyThereIsNoAnswer) {
    EXPECT_EQ(askRunningLauncher(path, "toggle"), std::nullopt);
    EXPECT_EQ(askRunningLauncher("", "toggle"), std::nullopt);
    EXPECT_EQ(askRunningLauncher(std::string(500, 'x'), "toggle"), std::nullopt);
}

TEST_F(ControlSocketTest, ASocketLeftByAKilledLauncherIsTakenOver) {
    const int orphan = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(orphan, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    ASSERT_EQ(::bind(orphan, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ::close(orphan);
    EXPECT_EQ(askRunningLauncher(path, "toggle"), std::nullopt);
    ASSERT_TRUE(server.listen(path));
    EXPECT_EQ(ask("toggle"), "did toggle");
}

TEST_F(ControlSocketTest, AClientThatSaysTooMuchOrNothingHarmsNobody) {
    ASSERT_TRUE(server.listen(path));
    QLocalSocket babbler;
    babbler.connectToServer(QString::fromStdString(path));
    babbler.write(QByteArray(100'000, 'x'));
    QLocalSocket silent;
    silent.connectToServer(QString::fromStdString(path));
    EXPECT_EQ(ask("toggle"), "did toggle");
}

} // namespace
} // namespace pello
