#include "platform/linux/GioAddressHandlers.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace pello {
namespace {

using testing::Eq;
using testing::Optional;

TEST(GioAddressHandlersTest, NamesTheDesktopEntryOfTheDefaultApplication) {
    const TemporaryFolder folder;
    // GLib reads these once, at its first use in a process.
    ::setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    ::setenv("XDG_DATA_DIRS", "/nonexistent", 1);
    ::setenv("XDG_CONFIG_DIRS", "/nonexistent", 1);
    const std::string entry = "[Desktop Entry]\nType=Application\nName=B\nExec=/bin/true %u\n"
                              "MimeType=x-scheme-handler/https;x-scheme-handler/notes;\n";
    const auto browser = folder.write("applications/browser.desktop", entry);
    const auto other = folder.write("applications/other.desktop", entry);
    folder.write("applications/mimeinfo.cache",
                 "[MIME Cache]\nx-scheme-handler/notes=other.desktop;\n"
                 "inode/directory=other.desktop;\n");
    folder.write("mimeapps.list",
                 "[Default Applications]\nx-scheme-handler/https=gone.desktop;browser.desktop\n");

    const GioAddressHandlers handlers;
    EXPECT_THAT(handlers.applicationFor("https://a.test/b"), Optional(browser));
    EXPECT_THAT(handlers.applicationFor("notes:today"), Optional(other));
    EXPECT_THAT(handlers.applicationFor("FILE://" + folder.path().string()), Optional(other));
    EXPECT_THAT(handlers.applicationFor("file:///gone"), Eq(std::nullopt));
    EXPECT_THAT(handlers.applicationFor("ftp://a.test"), Eq(std::nullopt));
    EXPECT_THAT(handlers.applicationFor("no address"), Eq(std::nullopt));
    EXPECT_THAT(handlers.applicationFor(""), Eq(std::nullopt));
}

} // namespace
} // namespace pello
