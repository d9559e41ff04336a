#include "sources/AppIndexer.h"

#include "platform/memory/MemoryBundleReader.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryWorkspace.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class AppIndexerTest : public testing::Test {
protected:
    AppIndexerTest() {
        indexer->onIndexChanged = [this] { ++changes; };
    }

    void add(const std::string& name) { reader.descriptions[folder.write(name + ".app", "")] = {}; }

    std::vector<std::string> titles() const {
        std::vector<std::string> found;
        for (const LaunchItem& item : indexer->items()->items()) {
            found.push_back(item.title);
        }
        return found;
    }

    TemporaryFolder folder;
    MemoryMainLoop loop;
    MemoryFolderWatcher watcher;
    MemoryBundleReader reader;
    MemoryWorkspace workspace;
    int changes = 0;
    std::unique_ptr<AppIndexer> indexer =
        std::make_unique<AppIndexer>(loop, watcher, reader, workspace, "/home/ann");
};

TEST_F(AppIndexerTest, AScanPublishesTheWholeListAtOnce) {
    add("Beta");
    add("Alpha");
    indexer->configure({folder.path()});
    indexer->rescan();
    EXPECT_TRUE(indexer->isScanning());
    EXPECT_THAT(titles(), IsEmpty());
    indexer->onIndexChanged = [this] {
        ++changes;
        EXPECT_FALSE(indexer->isScanning());
        EXPECT_THAT(titles(), ElementsAre("Alpha", "Beta"));
    };
    const auto before = indexer->items();
    loop.settle();
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(before->items(), IsEmpty()) << "a published list never changes";
    indexer->items()->items()[1].run();
    EXPECT_THAT(workspace.openedApplications, ElementsAre(folder.path() / "Beta.app"));
}

TEST_F(AppIndexerTest, ConfiguringWatchesButDoesNotScan) {
    const fs::path other = folder.makeFolder("other");
    watcher.refuse(other);
    indexer->configure({folder.path(), other});
    EXPECT_EQ(loop.backgroundCount(), 0U);
    EXPECT_EQ(watcher.activeCount(), 1);
    indexer->configure({folder.path(), other});
    EXPECT_EQ(watcher.installedCount(), 1) << "the same folders";
    indexer->configure({other, folder.path()});
    EXPECT_EQ(watcher.installedCount(), 2) << "another order is another list";
    EXPECT_EQ(watcher.activeCount(), 1);
    indexer.reset();
    EXPECT_EQ(watcher.activeCount(), 0);
}

TEST_F(AppIndexerTest, ABurstOfChangesCausesOneScanAfterTheQuietPeriod) {
    add("Alpha");
    indexer->configure({folder.path()});
    for (int i = 0; i < 10; ++i) {
        watcher.touch(folder.path());
        loop.advance(100ms);
    }
    loop.advance(AppIndexer::kQuietPeriod - 101ms);
    EXPECT_EQ(changes, 0);
    loop.advance(1ms);
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(titles(), ElementsAre("Alpha"));
    loop.advance(10s);
    EXPECT_EQ(changes, 1);
}

TEST_F(AppIndexerTest, OfOverlappingScansTheOneStartedLastCounts) {
    add("Alpha");
    indexer->configure({folder.path()});
    indexer->rescan();
    indexer->configure({folder.path() / "elsewhere"});
    indexer->rescan();
    indexer->rescan();
    loop.finishBackground(1);
    EXPECT_TRUE(indexer->isScanning()) << "a stale scan ended";
    loop.finishBackground(1);
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(indexer->isScanning());
    loop.finishBackground(0);
    EXPECT_THAT(titles(), IsEmpty()) << "the older scan came later";
    EXPECT_EQ(changes, 1);
}

TEST_F(AppIndexerTest, MayGoWhileAScanOrATimerIsPending) {
    indexer->configure({folder.path()});
    watcher.touch(folder.path());
    indexer->rescan();
    indexer.reset();
    watcher.touch(folder.path());
    loop.advance(10s);
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace pello
