#include "platform/linux/InotifyFolderWatcher.h"
#include "platform/linux/PlistUserDefaults.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryLog.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/qt/QtMainLoop.h"
#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;

/// One kind of user defaults, and what another process does to them.
class DefaultsDriver {
public:
    virtual ~DefaultsDriver() = default;
    virtual UserDefaults& defaults() = 0;
    virtual void settle() {}
    virtual void setElsewhere(const std::string& key, PropertyValue value) = 0;
};

class MemoryDriver final : public DefaultsDriver {
public:
    UserDefaults& defaults() override { return defaults_; }
    void setElsewhere(const std::string& key, PropertyValue value) override {
        defaults_.setElsewhere(key, std::move(value));
    }

private:
    MemoryUserDefaults defaults_;
};

class PlistDriver final : public DefaultsDriver {
public:
    UserDefaults& defaults() override { return defaults_; }
    void settle() override { loop_.settle(); }
    void setElsewhere(const std::string& key, PropertyValue value) override {
        PlistUserDefaults(file_, loop_, watcher_, log_).set(key, std::move(value));
        watcher_.touch(folder_.path());
        loop_.settle();
    }

private:
    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "contract.plist";
    MemoryMainLoop loop_;
    MemoryFolderWatcher watcher_;
    MemoryLog log_;
    PlistUserDefaults defaults_{file_, loop_, watcher_, log_};
};

/// As the program on the desktop has it: real workers, and a kernel that tells of changes.
class DesktopDriver final : public DefaultsDriver {
public:
    UserDefaults& defaults() override { return defaults_; }
    void settle() override { EXPECT_TRUE(defaults_.flush()); }
    void setElsewhere(const std::string& key, PropertyValue value) override {
        bool isHeard = false;
        const auto listening =
            defaults_.changedElsewhere.connect([&](const auto& /*keys*/) { isHeard = true; });
        MemoryMainLoop loop;
        MemoryFolderWatcher watcher;
        PlistUserDefaults(file_, loop, watcher, log_).set(key, std::move(value));
        turnQtUntil([&] { return isHeard; });
    }

private:
    const bool isReady_ = (ensureQtApplication(), true);
    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "made by the defaults/contract.plist";
    QtMainLoop loop_;
    InotifyFolderWatcher watcher_;
    MemoryLog log_;
    PlistUserDefaults defaults_{file_, loop_, watcher_, log_};
};

template <class Driver>
class UserDefaultsContract : public testing::Test {
protected:
    Driver driver;
};

using Drivers = testing::Types<MemoryDriver, PlistDriver, DesktopDriver>;
TYPED_TEST_SUITE(UserDefaultsContract, Drivers);

TYPED_TEST(UserDefaultsContract, EveryTypeReadsBackAtOnceAndAfterAFlush) {
    const PropertyDictionary values{
        {"text", "naïve 🦊\nline \x01"},
        {"empty", ""},
        {"number", std::numeric_limits<std::int64_t>::min()},
        {"real", 0.1},
        {"whole real", 2.0},
        {"flag", true},
        {"data", PropertyData{0, 255, 10}},
        {"date", Date{700000000.25}},
        {"array", PropertyArray{1, "two", PropertyArray{}}},
        {"dictionary", PropertyDictionary{{"inner", PropertyDictionary{{"deep", false}}}}},
    };
    for (const auto& [key, value] : values) {
        this->driver.defaults().set(key, value);
        EXPECT_THAT(this->driver.defaults().value(key), Optional(value)) << key;
    }
    EXPECT_TRUE(this->driver.defaults().flush());
    for (const auto& [key, value] : values) {
        EXPECT_THAT(this->driver.defaults().value(key), Optional(value)) << key;
    }
}

TYPED_TEST(UserDefaultsContract, RegisteredValuesShowWhereNothingIsStored) {
    auto& defaults = this->driver.defaults();
    defaults.registerDefaults({{"size", 8}, {"glass", true}});
    defaults.registerDefaults({{"size", 9}});
    EXPECT_THAT(defaults.value("size"), Optional(PropertyValue(9)));
    EXPECT_THAT(defaults.value("glass"), Optional(PropertyValue(true)));
    EXPECT_THAT(defaults.storedKeys(), IsEmpty());
    defaults.set("size", 10);
    EXPECT_THAT(defaults.value("size"), Optional(PropertyValue(10)));
    defaults.remove("size");
    EXPECT_THAT(defaults.value("size"), Optional(PropertyValue(9)));
    EXPECT_THAT(defaults.value("nothing"), Eq(std::nullopt));
}

TYPED_TEST(UserDefaultsContract, ListsTheStoredKeysInAscendingOrder) {
    for (const char* key : {"b", "a", "c", "B"}) {
        this->driver.defaults().set(key, 1);
    }
    this->driver.defaults().remove("c");
    this->driver.defaults().remove("never there");
    EXPECT_THAT(this->driver.defaults().storedKeys(), ElementsAre("B", "a", "b"));
}

TYPED_TEST(UserDefaultsContract, TellsWhatAnotherProcessChangedAndNothingElse) {
    auto& defaults = this->driver.defaults();
    std::vector<std::string> heard;
    const auto listening =
        defaults.changedElsewhere.connect([&](const std::vector<std::string>& keys) {
            for (const std::string& key : keys) {
                const auto value = defaults.value(key);
                heard.push_back(key + "=" + *value->template as<std::string>());
            }
        });
    defaults.set("mine", "own");
    this->driver.settle();
    this->driver.setElsewhere("theirs", "new");
    this->driver.setElsewhere("mine", "changed");
    EXPECT_TRUE(defaults.flush());
    EXPECT_THAT(heard, ElementsAre("theirs=new", "mine=changed"));
}

} // namespace
} // namespace pello
