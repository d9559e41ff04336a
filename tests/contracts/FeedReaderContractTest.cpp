#include "platform/memory/MemoryFeedReader.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/qt/QtFeedReader.h"
#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>

namespace pello {
namespace {

using Reason = FeedReader::Failure::Reason;

/// One kind of reader, with a document of the text "notes" and an address without one.
class MemoryDriver {
public:
    FeedReader& reader() { return reader_; }
    [[nodiscard]] std::string document() const { return "file:///notes"; }
    [[nodiscard]] std::string nowhere() const { return "file:///nothing"; }
    void turnUntil(const std::function<bool()>& /*happened*/) { loop_.settle(); }
    void turn() { loop_.settle(); }

private:
    MemoryMainLoop loop_{Date{0}};
    MemoryFeedReader reader_ = [this] {
        MemoryFeedReader reader{loop_};
        reader.documents[document()] = "notes";
        return reader;
    }();
};

class QtDriver {
public:
    QtDriver() { ensureQtApplication(); }
    FeedReader& reader() { return reader_; }
    [[nodiscard]] std::string document() const { return "file://" + file_.string(); }
    [[nodiscard]] std::string nowhere() const { return document() + "-missing"; }
    void turnUntil(const std::function<bool()>& happened) { turnQtUntil(happened); }
    void turn() {
        for (int turns = 0; turns < 20; ++turns) {
            QCoreApplication::processEvents();
        }
    }

private:
    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.write("notes.xml", "notes");
    QtFeedReader reader_;
};

FeedReader::Request request(const std::string& address) {
    return {
        .address = address, .largest = 1000, .patience = std::chrono::seconds(20), .redirects = 3};
}

template <class Driver>
class FeedReaderContract : public testing::Test {
protected:
    /// What reading `wanted` ends in; only in a later turn.
    FeedReader::Answer read(const FeedReader::Request& wanted) {
        std::optional<FeedReader::Answer> answer;
        const Subscription reading =
            driver.reader().read(wanted, [&](const FeedReader::Answer& given) { answer = given; });
        EXPECT_FALSE(answer);
        driver.turnUntil([&] { return answer.has_value(); });
        return answer.value();
    }

    Driver driver;
};

using Drivers = testing::Types<MemoryDriver, QtDriver>;
TYPED_TEST_SUITE(FeedReaderContract, Drivers);

TYPED_TEST(FeedReaderContract, GivesTheDocumentOrSaysWhyNot) {
    EXPECT_EQ(std::get<std::string>(this->read(request(this->driver.document()))), "notes");
    const auto missing = this->read(request(this->driver.nowhere()));
    EXPECT_FALSE(std::get<FeedReader::Failure>(missing).detail.empty());
    auto small = request(this->driver.document());
    small.largest = 4;
    EXPECT_EQ(std::get<FeedReader::Failure>(this->read(small)).reason, Reason::tooLarge);
    small.largest = 5;
    EXPECT_EQ(std::get<std::string>(this->read(small)), "notes");
}

TYPED_TEST(FeedReaderContract, WhoeverDoesNotWaitIsNotCalled) {
    int calls = 0;
    const auto count = [&](const FeedReader::Answer&) { ++calls; };
    Subscription reading = this->driver.reader().read(request(this->driver.document()), count);
    reading.reset();
    this->driver.turn();
    EXPECT_EQ(calls, 0);
    // The answer may end its own subscription.
    reading = this->driver.reader().read(request(this->driver.document()),
                                         [&](const FeedReader::Answer&) {
                                             ++calls;
                                             reading.reset();
                                         });
    this->driver.turnUntil([&] { return calls > 0; });
    this->driver.turn();
    EXPECT_EQ(calls, 1);
}

/// A server that gives the same answer to everybody, and nothing when that is empty.
class Server {
public:
    explicit Server(std::string answer) : answer_(std::move(answer)) {
        ensureQtApplication();
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
            QTcpSocket* socket = server_.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                socket->write(QByteArray::fromStdString(answer_));
                if (!answer_.empty()) {
                    socket->disconnectFromHost();
                }
            });
        });
        EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
    }

    [[nodiscard]] std::string address() const {
        return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + "/feed";
    }

private:
    std::string answer_;
    QTcpServer server_;
};

using QtFeedReaderTest = FeedReaderContract<QtDriver>;

TEST_F(QtFeedReaderTest, ReadsFromServersAndSaysWhatTheySay) {
    const Server good("HTTP/1.0 200 OK\r\n\r\nnotes");
    EXPECT_EQ(std::get<std::string>(read(request(good.address()))), "notes");
    const Server bad("HTTP/1.0 404 Not Found\r\n\r\nnotes");
    const auto refusal = std::get<FeedReader::Failure>(read(request(bad.address())));
    EXPECT_EQ(refusal.reason, Reason::refused);
    EXPECT_NE(refusal.detail.find("Not Found"), std::string::npos);
    const Server endless("HTTP/1.0 200 OK\r\n\r\n" + std::string(100'000, 'x'));
    EXPECT_EQ(std::get<FeedReader::Failure>(read(request(endless.address()))).reason,
              Reason::tooLarge);
}

TEST_F(QtFeedReaderTest, FollowsNeitherForEverNorIntoTheFileSystem) {
    const Server circle("HTTP/1.0 302 Found\r\nLocation: /feed\r\n\r\n");
    EXPECT_EQ(std::get<FeedReader::Failure>(read(request(circle.address()))).reason,
              Reason::refused);
    const Server sly("HTTP/1.0 302 Found\r\nLocation: " + driver.document() + "\r\n\r\n");
    EXPECT_EQ(std::get<FeedReader::Failure>(read(request(sly.address()))).reason, Reason::refused);
}

TEST_F(QtFeedReaderTest, NobodyThereAndNobodyAnsweringIsTheSame) {
    std::string gone;
    {
        const Server server("");
        gone = server.address();
    }
    EXPECT_EQ(std::get<FeedReader::Failure>(read(request(gone))).reason, Reason::unreachable);
    const Server silent("");
    auto impatient = request(silent.address());
    impatient.patience = std::chrono::milliseconds(1);
    EXPECT_EQ(std::get<FeedReader::Failure>(read(impatient)).reason, Reason::unreachable);
}

} // namespace
} // namespace pello
