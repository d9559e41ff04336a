#include "app/ControlServer.h"
#include "app/client/ControlClient.h"
#include "platform/linux/LocalSocket.h"
#include "support/TemporaryFolder.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <array>
#include <cstring>
#include <future>
#include <memory>
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

    /// A client that says only this.
    FileDescriptor saying(std::string_view text) {
        FileDescriptor client = connectedTo(path);
        EXPECT_TRUE(client);
        ::send(client.number(), text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        return client;
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

TEST_F(ControlSocketTest, ATextOfAnyLengthIsAnsweredWhenTheLauncherLikes) {
    const std::string sent = std::string(3'000'000, 'x') + "\n";
    std::unique_ptr<ControlCaller> waiting;
    server.onText = [&](std::string_view verb, const std::string& text, auto caller) {
        EXPECT_EQ(verb, "pick A b");
        EXPECT_TRUE(text == sent);
        waiting = std::move(caller);
    };
    ASSERT_TRUE(server.listen(path));
    auto answer =
        std::async(std::launch::async, [&] { return askWithText(path, "pick A b", sent); });
    while (!waiting) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(ask("toggle"), "did toggle") << "others are served meanwhile";
    waiting->answer("chosen 1");
    waiting.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(answer.get(), "chosen 1");
}

TEST_F(ControlSocketTest, AClientThatGoesAwayIsNoticed) {
    std::unique_ptr<ControlCaller> waiting;
    bool hasGone = false;
    server.onText = [&](std::string_view /*verb*/, const std::string& text, auto caller) {
        EXPECT_EQ(text, "");
        waiting = std::move(caller);
        waiting->onGone = [&] {
            hasGone = true;
            waiting.reset();
        };
    };
    ASSERT_TRUE(server.listen(path));
    {
        const FileDescriptor client = saying("+0 pick\n");
        while (!waiting) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
    while (!hasGone) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_FALSE(waiting);
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
    server.onText = [](auto, auto, auto) { ADD_FAILURE() << "no text came whole"; };
    ASSERT_TRUE(server.listen(path));
    const FileDescriptor babbler = saying(std::string(100'000, 'x'));
    for (const char* claim : {"+99999999999999999999 x\n", "+x\n", "+\n", "+5\n", "+9 pick\nab"}) {
        const FileDescriptor liar = saying(claim);
        EXPECT_EQ(ask("toggle"), "did toggle") << claim;
    }
    const FileDescriptor silent = saying("");
    EXPECT_EQ(ask("toggle"), "did toggle");
}

} // namespace
} // namespace pello
