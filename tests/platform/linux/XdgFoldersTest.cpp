#include "platform/linux/XdgFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;

TEST(XdgFoldersTest, UnsetAndRelativeValuesGiveTheDefaults) {
    const XdgFolders folders = xdgFolders({{{"HOME", "/home/ann"},
                                            {"XDG_CONFIG_HOME", "relative/config"},
                                            {"XDG_DATA_HOME", ""},
                                            {"XDG_DATA_DIRS", "::also/relative"}}});
    EXPECT_EQ(folders.home, "/home/ann");
    EXPECT_EQ(folders.config, "/home/ann/.config");
    EXPECT_EQ(folders.data, "/home/ann/.local/share");
    EXPECT_EQ(folders.state, "/home/ann/.local/state");
    EXPECT_EQ(folders.runtime, std::nullopt);
    EXPECT_THAT(folders.systemData, ElementsAre("/usr/local/share", "/usr/share"));
}

TEST(XdgFoldersTest, AbsoluteValuesCount) {
    const XdgFolders folders = xdgFolders({{{"HOME", "not/absolute"},
                                            {"XDG_CONFIG_HOME", "/c"},
                                            {"XDG_DATA_HOME", "/d"},
                                            {"XDG_STATE_HOME", "/s"},
                                            {"XDG_RUNTIME_DIR", "/run/user/1"},
                                            {"XDG_DATA_DIRS", "/one:relative:/two/"}}});
    EXPECT_TRUE(folders.home.is_absolute());
    EXPECT_EQ(folders.config, "/c");
    EXPECT_EQ(folders.data, "/d");
    EXPECT_EQ(folders.state, "/s");
    EXPECT_EQ(folders.runtime, "/run/user/1");
    EXPECT_THAT(folders.systemData, ElementsAre("/one", "/two/"));
}

} // namespace
} // namespace pello
