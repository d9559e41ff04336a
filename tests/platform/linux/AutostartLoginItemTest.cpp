#include "platform/linux/AutostartLoginItem.h"

#include "platform/linux/DesktopEntry.h"
#include "platform/linux/ExecLine.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::Optional;

class AutostartLoginItemTest : public testing::Test {
protected:
    /// Whether an entry with these lines counts as enabled.
    bool isEnabledBy(const std::string& lines) {
        folder.write("autostart/is.tolva.pello.desktop", "[Desktop Entry]\n" + lines);
        return item.isEnabled();
    }

    TemporaryFolder folder;
    std::filesystem::path autostart = folder.path() / "autostart";
    AutostartLoginItem item{autostart, {"/usr/bin/pello"}};
};

TEST_F(AutostartLoginItemTest, HonoursHowTheDesktopsSwitchAnEntryOff) {
    const std::string entry = "Type=Application\nExec=/usr/bin/pello\n";
    EXPECT_TRUE(isEnabledBy(entry));
    EXPECT_TRUE(isEnabledBy(entry + "Hidden=false\nX-GNOME-Autostart-enabled=true\n"));
    EXPECT_FALSE(isEnabledBy(entry + "Hidden=true\n"));
    EXPECT_FALSE(isEnabledBy(entry + "X-GNOME-Autostart-enabled=false\n"));
    EXPECT_FALSE(isEnabledBy("Type=Application\n"));
    EXPECT_FALSE(isEnabledBy("Type=Link\nExec=/usr/bin/pello\n"));
    folder.write("autostart/is.tolva.pello.desktop", "\xff\xfe");
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(item.registerItem());
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(AutostartLoginItemTest, TheCommandComesThroughWordForWord) {
    const std::vector<std::string> command{
        "/opt/my apps/50% \"pello\"", "--a", "", "$HOME `x` \\ \\n", "two\nlines", "'", "%U"};
    EXPECT_TRUE(AutostartLoginItem(autostart, command).registerItem());
    const auto entry = readDesktopEntry(autostart / "is.tolva.pello.desktop");
    ASSERT_TRUE(entry.has_value());
    EXPECT_THAT(execArguments(entry->string("Exec").value_or(""), {}), Optional(command));
}

} // namespace
} // namespace pello
