#include "platform/linux/PosixProcesses.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryProcesses.h"
#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

namespace fs = std::filesystem;
using End = decltype(ProcessResult::end);
using Exited = ProcessResult::Exited;
using Failed = ProcessResult::Failed;
using Signalled = ProcessResult::Signalled;

class MemoryDriver {
public:
    Processes& processes() { return processes_; }

    fs::path printing(const std::string& output, const std::string& error, int status) {
        return program({{.end = Exited{status}, .standardOutput = output, .errorOutput = error}});
    }
    fs::path endless() { return program(std::nullopt); }
    fs::path stubborn() {
        auto file = program(std::nullopt);
        processes_.stubborn.insert(file);
        return file;
    }
    fs::path endingWhenStubbornRuns() { return printing("", "", 0); }
    void turnUntil(const std::function<bool()>& happened) {
        loop_.settle();
        EXPECT_TRUE(happened());
    }

private:
    fs::path program(std::optional<ProcessResult> result) {
        const auto file = "/bin/" + std::to_string(processes_.programs.size());
        processes_.programs.emplace(file, std::move(result));
        return file;
    }

    MemoryMainLoop loop_;
    MemoryProcesses processes_{loop_};
};

class PosixDriver {
public:
    Processes& processes() { return processes_; }

    fs::path printing(const std::string& output, const std::string& error, int status) {
        return script("printf '%s' '" + output + "'\nprintf '%s' '" + error + "' >&2\nexit " +
                      std::to_string(status));
    }
    fs::path endless() { return script("exec sleep 1000"); }
    fs::path stubborn() { return script("trap '' TERM; >" + ready() + "; exec sleep 1000"); }
    fs::path endingWhenStubbornRuns() {
        return script("until [ -e " + ready() + " ]; do sleep 0.01; done");
    }
    void turnUntil(const std::function<bool()>& happened) { turnQtUntil(happened); }

private:
    std::string ready() const { return (folder_.path() / "ready").string(); }
    fs::path script(const std::string& commands) {
        auto file = folder_.write(std::to_string(++count_), "#!/bin/sh\n" + commands + "\n");
        fs::permissions(file, fs::perms::owner_all);
        return file;
    }

    TemporaryFolder folder_;
    int count_ = 0;
    PosixProcesses processes_;
};

template <class Driver>
class ProcessesContract : public QtTest {
protected:
    Processes::Handle start(const fs::path& file) {
        return driver.processes().start(
            {.file = file, .folder = "/", .environment = {{"PATH", "/usr/bin:/bin"}}},
            [this](const ProcessResult& result) { results.push_back(result); });
    }

    /// The results of `count` processes that have ended.
    const std::vector<ProcessResult>& awaitResults(std::size_t count) {
        driver.turnUntil([&] { return results.size() >= count; });
        return results;
    }

    Driver driver;
    std::vector<ProcessResult> results;
};

using Drivers = testing::Types<MemoryDriver, PosixDriver>;
TYPED_TEST_SUITE(ProcessesContract, Drivers);

TYPED_TEST(ProcessesContract, TellsTheStatusAndBothOutputsLater) {
    this->start(this->driver.printing("out", "error", 3));
    EXPECT_TRUE(this->results.empty());
    EXPECT_EQ(this->awaitResults(1).at(0),
              (ProcessResult{.end = Exited{3}, .standardOutput = "out", .errorOutput = "error"}));
}

TYPED_TEST(ProcessesContract, ProgramsThatDoNotExistFailLater) {
    this->start("/nowhere/to be found");
    EXPECT_TRUE(this->results.empty());
    EXPECT_EQ(this->awaitResults(1).at(0),
              (ProcessResult{.end = Failed{"the file does not exist"}}));
}

TYPED_TEST(ProcessesContract, OneOfSeveralEndsWhenItIsAskedTo) {
    const auto other = this->start(this->driver.endless());
    const auto asked = this->start(this->driver.endless());
    EXPECT_NE(asked, other);
    this->driver.processes().terminate(asked);
    EXPECT_EQ(this->awaitResults(1).at(0).end, End(Signalled{.number = 15, .name = "SIGTERM"}));
    this->driver.processes().terminate(asked); // nobody is there any more
    this->driver.processes().kill(asked);
    this->driver.processes().kill(other);
    EXPECT_EQ(this->awaitResults(2).at(1).end, End(Signalled{.number = 9, .name = "SIGKILL"}));
    this->start(this->driver.printing("", "", 0));
    EXPECT_EQ(this->awaitResults(3).size(), 3U);
}

TYPED_TEST(ProcessesContract, WhatDoesNotEndWhenAskedToCanBeKilled) {
    const auto process = this->start(this->driver.stubborn());
    this->start(this->driver.endingWhenStubbornRuns());
    this->awaitResults(1);
    this->driver.processes().terminate(process);
    this->start(this->driver.printing("", "", 0));
    EXPECT_EQ(this->awaitResults(2).at(1).end, End(Exited{0}));
    this->driver.processes().kill(process);
    EXPECT_EQ(this->awaitResults(3).at(2).end, End(Signalled{.number = 9, .name = "SIGKILL"}));
}

} // namespace
} // namespace pello
