#include "platform/linux/InotifyFolderWatcher.h"

#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>

namespace pello {
namespace {

namespace fs = std::filesystem;

class InotifyFolderWatcherTest : public QtTest {
protected:
    /// Waits until the watch of `wanted` is told of something, whatever was told before.
    void expectTold(const std::function<void()>& change) {
        catchUp();
        const int before = told;
        change();
        turnQtUntil([&] { return told > before; });
    }

    void expectNotTold(const std::function<void()>& change) {
        catchUp();
        const int before = told;
        change();
        catchUp();
        EXPECT_EQ(told, before);
    }

    /// What changed before this call has been told when it returns.
    void catchUp() {
        int caughtUp = 0;
        const fs::path marker = folder.makeFolder("marker");
        const auto markers = watcher->watch(marker, [&] { ++caughtUp; });
        folder.write("marker/file", "x");
        turnQtUntil([&] { return caughtUp > 0; });
    }

    void watch() {
        watching = watcher->watch(wanted, [this] { ++told; });
        ASSERT_TRUE(watching);
    }

    TemporaryFolder folder;
    fs::path wanted = folder.path() / "share/applications";
    std::unique_ptr<InotifyFolderWatcher> watcher = std::make_unique<InotifyFolderWatcher>();
    Subscription watching;
    int told = 0;
};

TEST_F(InotifyFolderWatcherTest, EveryKindOfChangeIsTold) {
    fs::create_directories(wanted / "inner");
    watch();
    expectTold([&] { folder.write("share/applications/a", "1"); });
    expectTold([&] { folder.write("share/applications/a", "2"); });
    expectTold([&] { fs::rename(wanted / "a", wanted / "b"); });
    expectTold([&] { fs::rename(wanted / "b", folder.path() / "b"); });
    expectTold([&] { fs::rename(folder.path() / "b", wanted / "c"); });
    expectTold([&] { fs::permissions(wanted / "c", fs::perms::owner_all); });
    expectTold([&] { fs::create_symlink("nowhere", wanted / "link"); });
    expectTold([&] { fs::remove(wanted / "c"); });
    expectNotTold([&] { folder.write("share/applications/inner/x", "1"); });
    expectNotTold([&] { folder.write("share/x", "1"); });
}

TEST_F(InotifyFolderWatcherTest, AFolderThatDoesNotExistYetIsAwaited) {
    watch();
    expectNotTold([&] { fs::create_directories(folder.path() / "share"); });
    expectNotTold([&] { folder.write("share/other", "x"); });
    expectTold([&] { fs::create_directory(wanted); });
    expectTold([&] { folder.write("share/applications/a", "x"); });
}

TEST_F(InotifyFolderWatcherTest, AWholePathMayAppearAtOnce) {
    folder.write("new/applications/a", "x");
    watch();
    expectTold([&] { fs::rename(folder.path() / "new", folder.path() / "share"); });
    expectTold([&] { folder.write("share/applications/b", "x"); });
}

TEST_F(InotifyFolderWatcherTest, AFolderThatGoesIsAwaitedAgain) {
    fs::create_directories(wanted);
    watch();
    expectTold([&] { fs::remove(wanted); });
    expectTold([&] { fs::create_directory(wanted); });
    expectTold([&] { folder.write("share/applications/a", "x"); });
    expectTold([&] { fs::rename(wanted, folder.path() / "away"); });
    expectNotTold([&] { folder.write("away/b", "x"); });
    expectTold([&] { fs::rename(folder.path() / "away", wanted); });
    expectTold([&] { fs::remove_all(folder.path() / "share"); });
    expectTold([&] { fs::create_directories(wanted); });
    expectTold([&] { folder.write("share/applications/c", "x"); });
}

TEST_F(InotifyFolderWatcherTest, AFileInTheWayIsNoFolder) {
    folder.write("share/applications", "a file");
    watch();
    expectNotTold([&] { folder.write("share/applications", "rewritten"); });
    expectTold([&] {
        fs::remove(wanted);
        fs::create_directory(wanted);
    });
}

TEST_F(InotifyFolderWatcherTest, OneWatchMayStandWhereAnotherWaits) {
    fs::create_directories(folder.path() / "share");
    int parentTold = 0;
    watch();
    auto parent = watcher->watch(folder.path() / "share", [&] { ++parentTold; });
    parent.reset();
    expectTold([&] { fs::create_directory(wanted); });
    EXPECT_EQ(parentTold, 0);
}

TEST_F(InotifyFolderWatcherTest, ABurstIsToldInFewCallsAndNoneIsLost) {
    fs::create_directories(wanted);
    watch();
    for (int i = 0; i < 1000; ++i) {
        folder.write("share/applications/" + std::to_string(i), "x");
    }
    catchUp();
    EXPECT_GE(told, 1);
    EXPECT_LE(told, 10);
}

TEST_F(InotifyFolderWatcherTest, ACallbackMayDestroyTheWatcher) {
    fs::create_directories(wanted);
    bool isTold = false;
    watching = watcher->watch(wanted, [&] {
        isTold = true;
        watcher.reset();
    });
    folder.write("share/applications/a", "x");
    turnQtUntil([&] { return isTold; });
    EXPECT_EQ(watcher, nullptr);
}

} // namespace
} // namespace pello
