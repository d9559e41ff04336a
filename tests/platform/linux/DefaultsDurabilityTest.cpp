#include "platform/linux/PlistUserDefaults.h"
#include "platform/linux/PropertyListFile.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryLog.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/qt/QtMainLoop.h"
#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <QCoreApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <string>
#include <unistd.h>

namespace pello {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlobBytes = 100'000;

PropertyValue blob(std::int64_t n) {
    return PropertyData(kBlobBytes, static_cast<std::uint8_t>(n));
}

/// A process of its own with the defaults in `file`. It ends when `run` does, without the
/// destructors and exit handlers of the test program.
pid_t startProcess(const fs::path& file, const std::function<void(PlistUserDefaults&)>& run) {
    const pid_t child = ::fork();
    if (child == 0) {
        MemoryMainLoop loop;
        MemoryFolderWatcher watcher;
        MemoryLog log;
        PlistUserDefaults defaults(file, loop, watcher, log);
        run(defaults);
        ::_exit(log.lines().empty() ? 0 : 1);
    }
    return child;
}

int waitFor(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

std::int64_t numberIn(const PropertyDictionary& values, std::string_view key) {
    const auto found = values.find(key);
    const auto* number = found != values.end() ? found->second.as<std::int64_t>() : nullptr;
    return number != nullptr ? *number : -1;
}

class DefaultsDurabilityTest : public testing::Test {
protected:
    TemporaryFolder folder;
    fs::path file = folder.path() / "is.tolva.pello.plist";
};

/// Counts up, one file for each number, and tells each number that is on the disk.
void countUp(PlistUserDefaults& defaults, int report) {
    const auto before = defaults.value("n");
    for (auto n = before ? *before->as<std::int64_t>() + 1 : 0;; ++n) {
        defaults.set("n", n);
        defaults.set("blob", blob(n));
        if (!defaults.flush() || ::write(report, &n, sizeof n) != sizeof n) {
            ::_exit(1);
        }
    }
}

/// The last number that came out of `report`; waits for the first.
std::int64_t lastNumber(int report) {
    std::int64_t last = -1;
    for (std::int64_t n = 0; ::read(report, &n, sizeof n) == sizeof n;) {
        last = n;
    }
    return last;
}

/// Starts a writer, kills it `delay` after its first number, and returns the last number that it
/// reported as written.
std::int64_t killedWriter(const fs::path& file, std::chrono::microseconds delay) {
    std::array<int, 2> report{};
    EXPECT_EQ(::pipe(report.data()), 0);
    const pid_t child =
        startProcess(file, [&](PlistUserDefaults& defaults) { countUp(defaults, report[1]); });
    ::close(report[1]);
    std::int64_t first = 0;
    EXPECT_EQ(::read(report[0], &first, sizeof first), ssize_t{sizeof first});
    const auto moment = std::chrono::steady_clock::now() + delay;
    while (std::chrono::steady_clock::now() < moment) {
    }
    ::kill(child, SIGKILL);
    EXPECT_EQ(WTERMSIG(waitFor(child)), SIGKILL) << "the writer must not give up by itself";
    const std::int64_t reported = std::max(first, lastNumber(report[0]));
    ::close(report[0]);
    return reported;
}

TEST_F(DefaultsDurabilityTest, AWriterThatIsKilledLeavesTheOldFileOrTheNewOne) {
    constexpr int kKills = 300;
    constexpr std::uint64_t kLongestMicroseconds = 6000; // several writes
    std::mt19937_64 random(20261121); // NOLINT(*-msc51-cpp): the same moments each time
    startProcess(file, [](PlistUserDefaults& defaults) {
        defaults.set("other", "kept");
        defaults.flush();
    });
    ::wait(nullptr);
    int unfinished = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        const std::int64_t reported =
            killedWriter(file, std::chrono::microseconds(random() % kLongestMicroseconds));
        const auto left = PropertyListFile::load(file);
        ASSERT_EQ(left.state, PropertyListFile::State::read) << "kill " << kill;
        const std::int64_t n = numberIn(left.values, "n");
        ASSERT_GE(n, reported) << "what was reported as written is there";
        ASSERT_LE(n, reported + 1);
        ASSERT_EQ(left.values,
                  (PropertyDictionary{{"n", n}, {"blob", blob(n)}, {"other", "kept"}}));
        const auto files = std::distance(fs::directory_iterator(folder.path()), {});
        ASSERT_LE(files, 3) << "leftovers do not pile up";
        unfinished += files == 3 ? 1 : 0;
    }
    EXPECT_GT(unfinished, 0) << "no kill came amid writing a file, so nothing was shown";
}

TEST_F(DefaultsDurabilityTest, ProcessesThatCountDifferentKeysAtATimeLoseNothing) {
    constexpr std::array kKeys{"a", "b", "c", "d"};
    constexpr std::int64_t kCount = 50;
    for (const char* key : kKeys) {
        startProcess(file, [key](PlistUserDefaults& defaults) {
            for (std::int64_t n = 1; n <= kCount; ++n) {
                const auto value = defaults.value(key);
                defaults.set(key, value ? *value->as<std::int64_t>() + 1 : 1);
                if (!defaults.flush()) {
                    ::_exit(1);
                }
            }
        });
    }
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
        EXPECT_EQ(waitFor(-1), 0);
    }
    const auto values = PropertyListFile::load(file).values;
    for (const char* key : kKeys) {
        EXPECT_EQ(numberIn(values, key), kCount) << key;
    }
}

TEST_F(DefaultsDurabilityTest, RealWorkersAndFlushesKeepTheOrderOfWhatIsSet) {
    constexpr std::int64_t kCount = 300;
    ensureQtApplication();
    QtMainLoop loop;
    MemoryFolderWatcher watcher;
    MemoryLog log;
    PlistUserDefaults defaults(file, loop, watcher, log);
    for (std::int64_t n = 1; n <= kCount; ++n) {
        defaults.set("n", n);
        defaults.set("key" + std::to_string(n % 7), n);
        QCoreApplication::processEvents(); // starts a worker, which is at the disk from here on
        watcher.touch(folder.path());
        if (n % 5 == 0) {
            ASSERT_TRUE(defaults.flush());
            ASSERT_EQ(numberIn(PropertyListFile::load(file).values, "n"), n);
        }
    }
    EXPECT_TRUE(defaults.flush());
    const auto values = PropertyListFile::load(file).values;
    for (std::int64_t n = kCount - 6; n <= kCount; ++n) {
        EXPECT_EQ(numberIn(values, "key" + std::to_string(n % 7)), n);
    }
    EXPECT_TRUE(log.lines().empty());
}

} // namespace
} // namespace pello
