#include "platform/linux/InotifyFolderWatcher.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace pello {
namespace {

namespace fs = std::filesystem;

class MemoryDriver {
public:
    std::unique_ptr<FolderWatcher> make() {
        auto watcher = std::make_unique<MemoryFolderWatcher>();
        watcher->refuse(unwatchable());
        watcher_ = watcher.get();
        return watcher;
    }
    static fs::path unwatchable() { return "/unwatchable"; }
    void change(const fs::path& folder) { watcher_->touch(folder); }
    static void turnUntil(const std::function<bool()>& happened) { EXPECT_TRUE(happened()); }

private:
    MemoryFolderWatcher* watcher_ = nullptr;
};

class InotifyDriver {
public:
    static std::unique_ptr<FolderWatcher> make() {
        ensureQtApplication();
        return std::make_unique<InotifyFolderWatcher>();
    }
    static fs::path unwatchable() { return "relative/folder"; }
    void change(const fs::path& folder) {
        std::ofstream(folder / ("entry" + std::to_string(++count_))) << "x";
    }
    static void turnUntil(const std::function<bool()>& happened) { turnQtUntil(happened); }

private:
    int count_ = 0;
};

template <class Driver>
class FolderWatcherContract : public testing::Test {
protected:
    /// A callback that counts in `times`.
    static auto count(int& times) {
        return [&times] { ++times; };
    }

    /// Changes a folder of its own and waits until that is told: what happened before has been
    /// told by then, too.
    void catchUp() {
        int told = 0;
        const fs::path other = folder.makeFolder("other");
        const auto watching = watcher->watch(other, count(told));
        driver.change(other);
        driver.turnUntil([&] { return told > 0; });
    }

    TemporaryFolder folder;
    fs::path watched = folder.makeFolder("watched");
    Driver driver;
    std::unique_ptr<FolderWatcher> watcher = driver.make();
};

using Drivers = testing::Types<MemoryDriver, InotifyDriver>;
TYPED_TEST_SUITE(FolderWatcherContract, Drivers);

TYPED_TEST(FolderWatcherContract, TellsEveryWatchOfTheFolderAndNoOther) {
    int one = 0;
    int two = 0;
    int elsewhere = 0;
    const auto first = this->watcher->watch(this->watched, this->count(one));
    const auto second = this->watcher->watch(this->watched, this->count(two));
    const auto third =
        this->watcher->watch(this->folder.makeFolder("elsewhere"), this->count(elsewhere));
    EXPECT_TRUE(first && second && third);
    this->driver.change(this->watched);
    this->driver.turnUntil([&] { return one > 0 && two > 0; });
    EXPECT_EQ(elsewhere, 0);
}

TYPED_TEST(FolderWatcherContract, AWatchEndsWithItsSubscriptionAndLeavesTheOthers) {
    int ended = 0;
    int kept = 0;
    auto first = this->watcher->watch(this->watched, this->count(ended));
    const auto second = this->watcher->watch(this->watched, this->count(kept));
    first.reset();
    this->driver.change(this->watched);
    this->driver.turnUntil([&] { return kept > 0; });
    EXPECT_EQ(ended, 0);
}

TYPED_TEST(FolderWatcherContract, ACallbackMayEndItsWatchAndStartAnother) {
    int first = 0;
    int second = 0;
    Subscription watching;
    watching = this->watcher->watch(this->watched, [&] {
        ++first;
        watching = this->watcher->watch(this->watched, this->count(second));
    });
    this->driver.change(this->watched);
    this->driver.turnUntil([&] { return first > 0; });
    this->catchUp();
    this->driver.change(this->watched);
    this->driver.turnUntil([&] { return second > 0; });
    EXPECT_EQ(first, 1);
}

TYPED_TEST(FolderWatcherContract, WhatCannotBeWatchedGivesNothing) {
    EXPECT_FALSE(this->watcher->watch(this->driver.unwatchable(), [] {}));
}

TYPED_TEST(FolderWatcherContract, ASubscriptionMayOutliveTheWatcher) {
    auto watching = this->watcher->watch(this->watched, [] {});
    this->watcher.reset();
    watching.reset();
}

} // namespace
} // namespace pello
