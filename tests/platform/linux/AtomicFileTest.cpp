#include "platform/linux/AtomicFile.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

namespace fs = std::filesystem;

TEST(AtomicFileTest, FollowsAChainOfLinksToAFileThatNeedNotExist) {
    const TemporaryFolder folder;
    const fs::path target = folder.makeFolder("dotfiles") / "settings";
    fs::create_symlink("dotfiles/settings", folder.path() / "relative");
    fs::create_symlink(folder.path() / "relative", folder.path() / "absolute");
    EXPECT_EQ(followingLinks(folder.path() / "absolute"), target);
    EXPECT_EQ(followingLinks(target), target);
    fs::create_symlink("loop", folder.path() / "loop");
    EXPECT_EQ(followingLinks(folder.path() / "loop"), folder.path() / "loop");
}

TEST(AtomicFileTest, MakesFoldersForTheUserAlone) {
    const TemporaryFolder folder;
    const fs::path inner = folder.path() / "one/two";
    EXPECT_FALSE(makePrivateFolder(inner));
    EXPECT_FALSE(makePrivateFolder(inner));
    EXPECT_EQ(fs::status(inner).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(inner.parent_path()).permissions(), fs::perms::owner_all);
    folder.write("file", "");
    EXPECT_EQ(makePrivateFolder(folder.path() / "file/inner"), std::errc::not_a_directory);
}

TEST(AtomicFileTest, PutsFilesAsideUnderNamesOfTheirOwn) {
    const TemporaryFolder folder;
    const Date now = Date::fromUnix(1795271445);
    std::error_code error;
    const auto first = putAside(folder.write("f.plist", "first"), now, error);
    const auto second = putAside(folder.write("f.plist", "second"), now, error);
    ASSERT_TRUE(first && second) << error.message();
    EXPECT_EQ(first->filename(), "f.plist.unreadable-20261121T143045Z");
    EXPECT_NE(*first, *second);
    EXPECT_TRUE(fs::exists(*first) && fs::exists(*second));
    EXPECT_FALSE(putAside(folder.path() / "nothing", now, error));
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
}

TEST(AtomicFileTest, RemovesOnlyTheUnfinishedFilesOfThisFile) {
    const TemporaryFolder folder;
    folder.write(".f.new-a1B2c3", "half");
    folder.write(".f.new-d4E5f6", "half");
    for (const char* name : {".g.new-a1B2c3", ".f.lock", "f", "f.new-a"}) {
        folder.write(name, "whole");
    }
    removeLeftovers(folder.path() / "f");
    EXPECT_FALSE(fs::exists(folder.path() / ".f.new-a1B2c3"));
    EXPECT_FALSE(fs::exists(folder.path() / ".f.new-d4E5f6"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 4);
}

} // namespace
} // namespace pello
