#include "platform/linux/FileLog.h"
#include "platform/linux/JournalLog.h"
#include "platform/memory/MemoryLog.h"
#include "support/JournalSocket.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;

/// One kind of log, and the messages in it as "category: text" or "category error: text".
class MemoryDriver {
public:
    static constexpr bool isHere = true;
    Log& log() { return log_; }
    std::vector<std::string> messages(std::size_t /*expected*/) { return log_.lines(); }

private:
    MemoryLog log_;
};

class FileDriver {
public:
    static constexpr bool isHere = true;
    Log& log() { return log_; }
    std::vector<std::string> messages(std::size_t /*expected*/) {
        std::vector<std::string> messages;
        std::ifstream stream(folder_.path() / "pello.log");
        for (std::string line; std::getline(stream, line);) {
            messages.push_back(line.substr(line.find(' ') + 1)); // after the time
        }
        return messages;
    }

private:
    TemporaryFolder folder_;
    FileLog log_{folder_.path() / "pello.log"};
};

class JournalDriver {
public:
    Log& log() { return log_; }
    std::vector<std::string> messages(std::size_t expected) {
        std::vector<std::string> messages;
        for (const auto& fields : journal_.receive(expected)) {
            EXPECT_EQ(fields.at("SYSLOG_IDENTIFIER"), "pello");
            EXPECT_EQ(fields.at("PELLO_SUBSYSTEM"), "is.tolva.pello");
            messages.push_back(fields.at("PELLO_CATEGORY") +
                               (fields.at("PRIORITY") == "3" ? " error: " : ": ") +
                               fields.at("MESSAGE"));
        }
        return messages;
    }
    const bool isHere = JournalSocket::canBeMade();

private:
    JournalSocket journal_;
    JournalLog log_;
};

template <class Driver>
class LogContract : public testing::Test {
protected:
    void SetUp() override {
        if (!driver.isHere) {
            GTEST_SKIP() << "needs a mount namespace of its own";
        }
    }
    Driver driver;
};

using Drivers = testing::Types<MemoryDriver, FileDriver, JournalDriver>;
TYPED_TEST_SUITE(LogContract, Drivers);

TYPED_TEST(LogContract, KeepsMessagesInOrderWithCategoryAndLevel) {
    Log& log = this->driver.log();
    log.write(LogCategory::hotkey, LogLevel::info, "first");
    log.write(LogCategory::panel, LogLevel::error, "naïve 🦊 = 100%n");
    log.write(LogCategory::windows, LogLevel::info, "");
    EXPECT_THAT(this->driver.messages(3),
                ElementsAre("hotkey: first", "panel error: naïve 🦊 = 100%n", "windows: "));
}

TYPED_TEST(LogContract, TakesMessagesFromAnyThread) {
    constexpr std::size_t kThreads = 4;
    constexpr std::size_t kMessages = 50;
    std::vector<std::string> expected;
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < kThreads; ++thread) {
        const std::string text(100 * (thread + 1), static_cast<char>('a' + thread));
        expected.insert(expected.end(), kMessages, "menus: " + text);
        threads.emplace_back([this, text] {
            for (std::size_t i = 0; i < kMessages; ++i) {
                this->driver.log().write(LogCategory::menus, LogLevel::info, text);
            }
        });
    }
    auto messages = this->driver.messages(kThreads * kMessages);
    for (std::thread& thread : threads) {
        thread.join();
    }
    if (messages.size() < expected.size()) {
        messages = this->driver.messages(kThreads * kMessages);
    }
    std::sort(messages.begin(), messages.end());
    EXPECT_EQ(messages, expected);
}

} // namespace
} // namespace pello
