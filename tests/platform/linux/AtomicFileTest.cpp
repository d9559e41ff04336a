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

TEST(AtomicFileTest, SaysWhyAFolderCannotBeMade) {
    const TemporaryFolder folder;
    folder.write("file", "");
    EXPECT_EQ(makePrivateFolder(folder.path() / "file/inner"), std::errc::not_a_directory);
}

} // namespace
} // namespace pello
