#include "platform/linux/AutostartLoginItem.h"
#include "platform/memory/MemoryLoginItem.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace pello {
namespace {

/// One kind of login item.
class MemoryDriver {
public:
    LoginItem& item() { return item_; }

private:
    MemoryLoginItem item_;
};

class AutostartDriver {
public:
    LoginItem& item() { return item_; }
    void refuse() { folder_.write("config", "a file where the folder should be"); }

private:
    TemporaryFolder folder_;
    AutostartLoginItem item_{folder_.path() / "config/autostart", {"/usr/bin/pello"}};
};

template <class Driver>
class LoginItemContract : public testing::Test {
protected:
    Driver driver;
};

using Drivers = testing::Types<MemoryDriver, AutostartDriver>;
TYPED_TEST_SUITE(LoginItemContract, Drivers);

TYPED_TEST(LoginItemContract, IsWhatWasLastAskedFor) {
    LoginItem& item = this->driver.item();
    EXPECT_FALSE(item.isEnabled());
    for (int times = 0; times < 2; ++times) {
        EXPECT_TRUE(item.registerItem());
        EXPECT_TRUE(item.registerItem());
        EXPECT_TRUE(item.isEnabled());
        EXPECT_TRUE(item.unregisterItem());
        EXPECT_TRUE(item.unregisterItem());
        EXPECT_FALSE(item.isEnabled());
    }
}

TEST(AutostartLoginItemContract, TellsWhenThePlatformRefuses) {
    AutostartDriver driver;
    driver.refuse();
    EXPECT_FALSE(driver.item().registerItem());
    EXPECT_FALSE(driver.item().isEnabled());
}

} // namespace
} // namespace pello
