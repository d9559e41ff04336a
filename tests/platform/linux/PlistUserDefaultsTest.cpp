#include "platform/linux/PlistUserDefaults.h"

#include "platform/bundles/PropertyList.h"
#include "platform/linux/PropertyListFile.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryLog.h"
#include "platform/memory/MemoryMainLoop.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <fstream>
#include <memory>
#include <sstream>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;
using testing::StartsWith;

std::string contentOf(const fs::path& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

/// The disk takes no more, for this process.
class FullDisk {
public:
    FullDisk() {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{.rlim_cur = 0, .rlim_max = before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

class PlistUserDefaultsTest : public testing::Test {
protected:
    using Defaults = std::unique_ptr<PlistUserDefaults>;

    /// A process that starts now, sharing only the disk with others.
    [[nodiscard]] Defaults start() {
        auto defaults = std::make_unique<PlistUserDefaults>(file, loop, watcher, log);
        listening.push_back(defaults->problem.connect(
            [this](const std::string& sentence) { problems.push_back(sentence); }));
        return defaults;
    }

    [[nodiscard]] PropertyDictionary onDisk() const { return PropertyListFile::load(file).values; }

    /// Another process sets `key` and is done.
    void setElsewhere(const std::string& key, const PropertyValue& value) {
        auto values = onDisk();
        values[key] = value;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << *serializePropertyList(values);
        watcher.touch(file.parent_path());
    }

    void damage() const { std::ofstream(file, std::ios::binary) << "not a property list"; }

    [[nodiscard]] std::vector<fs::path> putAside() const {
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(file.parent_path())) {
            if (entry.path().filename().string().find("unreadable") != std::string::npos) {
                files.push_back(entry.path());
            }
        }
        return files;
    }

    TemporaryFolder folder;
    fs::path file = folder.path() / "config/pello/is.tolva.pello.plist";
    MemoryMainLoop loop{Date::fromUnix(1795271445)};
    MemoryFolderWatcher watcher;
    MemoryLog log;
    std::vector<std::string> problems;
    std::vector<Subscription> listening;
};

TEST_F(PlistUserDefaultsTest, TheSettingsOfOneTurnAreOneWriteOfAPrivateFile) {
    const auto defaults = start();
    defaults->set("a", 1);
    defaults->set("b", 2);
    defaults->set("a", 3);
    loop.runPending();
    EXPECT_EQ(loop.backgroundCount(), 1U);
    EXPECT_FALSE(fs::exists(file)) << "the main thread left the disk alone";
    loop.settle();
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", 3}, {"b", 2}}));
    using fs::perms;
    EXPECT_EQ(fs::status(file).permissions(), perms::owner_read | perms::owner_write);
    EXPECT_EQ(fs::status(file.parent_path()).permissions(), perms::owner_all);
}

TEST_F(PlistUserDefaultsTest, SettingWhatIsSetWritesNothing) {
    const auto defaults = start();
    defaults->set("a", 1);
    loop.settle();
    defaults->set("a", 1);
    defaults->remove("b");
    loop.runPending();
    EXPECT_EQ(loop.backgroundCount(), 0U);
}

TEST_F(PlistUserDefaultsTest, WhatIsSetWhileAWorkerWritesIsWrittenNext) {
    const auto defaults = start();
    defaults->set("a", 1);
    loop.runPending();
    defaults->set("a", 2);
    defaults->set("b", 2);
    loop.runPending();
    EXPECT_EQ(loop.backgroundCount(), 1U) << "one at a time";
    loop.settle();
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", 2}, {"b", 2}}));
}

TEST_F(PlistUserDefaultsTest, AWorkerThatComesAfterAFlushWritesNothingOld) {
    const auto defaults = start();
    defaults->set("a", "old");
    loop.runPending();
    defaults->set("a", "new");
    EXPECT_TRUE(defaults->flush());
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", "new"}}));
    loop.settle();
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", "new"}}));
    EXPECT_THAT(defaults->value("a"), Optional(PropertyValue("new")));
}

TEST_F(PlistUserDefaultsTest, TheEndFlushesAndOutlivesNothing) {
    start()->set("a", 1);
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", 1}}));
    auto defaults = start();
    defaults->set("a", 2);
    loop.runPending();
    defaults.reset();
    loop.settle(); // its worker comes back to nobody
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", 2}}));
}

TEST_F(PlistUserDefaultsTest, NoticesWhatOthersWroteAndIsDeafToItself) {
    const auto defaults = start();
    defaults->set("theirs", 1);
    defaults->set("mine", Date{0.123456});
    loop.settle();
    std::vector<std::string> heard;
    const auto subscription = defaults->changedElsewhere.connect(
        [&](const auto& keys) { heard.insert(heard.end(), keys.begin(), keys.end()); });
    PropertyDictionary values{{"mine", onDisk().at("mine")}, {"other", true}};
    std::ofstream(file, std::ios::binary) << *serializePropertyList(values);
    defaults->set("mine", 2); // the write notices as well
    loop.settle();
    EXPECT_THAT(heard, ElementsAre("other", "theirs"));
    EXPECT_THAT(defaults->storedKeys(), ElementsAre("mine", "other"));
}

TEST_F(PlistUserDefaultsTest, WhatIsNotWrittenYetCountsMoreThanWhatOthersWrote) {
    const auto defaults = start();
    setElsewhere("key", "theirs");
    loop.runPending(); // reading is under way
    defaults->set("key", "mine");
    loop.finishBackground();
    EXPECT_THAT(defaults->value("key"), Optional(PropertyValue("mine")));
    loop.settle();
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"key", "mine"}}));
}

TEST_F(PlistUserDefaultsTest, ADamagedFileIsPutAsideAndReported) {
    fs::create_directories(file.parent_path());
    damage();
    const auto defaults = start();
    loop.settle();
    ASSERT_THAT(putAside(), SizeIs(1));
    EXPECT_EQ(contentOf(putAside().front()), "not a property list");
    ASSERT_THAT(problems, SizeIs(1));
    EXPECT_THAT(problems.front(), HasSubstr(putAside().front().string()));
    EXPECT_THAT(log.lines(), ElementsAre(StartsWith("panel error: ")));
    defaults->set("a", 1);
    loop.settle();
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", 1}}));
}

TEST_F(PlistUserDefaultsTest, AnythingButADictionaryIsDamaged) {
    for (const std::string& content :
         {std::string(), *serializePropertyList(PropertyArray{1}), std::string("bplist00\xff"),
          serializePropertyList(PropertyDictionary{{"a", 1}})->substr(0, 20)}) {
        const auto count = fs::exists(file.parent_path()) ? putAside().size() : 0;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        EXPECT_THAT(start()->storedKeys(), IsEmpty());
        EXPECT_EQ(putAside().size(), count + 1) << content.size() << " bytes";
    }
}

TEST_F(PlistUserDefaultsTest, ARunningProgramOutlivesItsFile) {
    const auto defaults = start();
    defaults->set("kept", 1);
    loop.settle();
    damage();
    watcher.touch(file.parent_path());
    loop.settle();
    EXPECT_THAT(putAside(), IsEmpty()) << "somebody may be writing it just now";
    EXPECT_THAT(defaults->value("kept"), Optional(PropertyValue(1)));
    defaults->set("new", 2);
    loop.settle();
    EXPECT_THAT(putAside(), SizeIs(1));
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"kept", 1}, {"new", 2}}));

    fs::remove_all(file.parent_path());
    watcher.touch(file.parent_path());
    loop.settle();
    defaults->remove("new");
    loop.settle();
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"kept", 1}}));
}

TEST_F(PlistUserDefaultsTest, AFullDiskIsReportedOnceAndTriedAgainWithTheNextChange) {
    const auto defaults = start();
    defaults->set("before", 0);
    loop.settle();
    {
        const FullDisk full;
        defaults->set("a", 1);
        loop.settle();
        defaults->set("b", 2);
        loop.settle();
        EXPECT_FALSE(defaults->flush());
    }
    watcher.touch(file.parent_path()); // as every attempt does: no reason for another
    loop.settle();
    ASSERT_THAT(problems, SizeIs(1));
    EXPECT_THAT(problems.front(), HasSubstr("cannot be saved"));
    EXPECT_THAT(log.lines(), SizeIs(1));
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"before", 0}}));
    EXPECT_THAT(defaults->value("a"), Optional(PropertyValue(1)));
    EXPECT_EQ(std::distance(fs::directory_iterator(file.parent_path()), {}), 2)
        << "the file and its lock";

    defaults->set("c", 3);
    loop.settle();
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", 1}, {"b", 2}, {"before", 0}, {"c", 3}}));
    const FullDisk full;
    defaults->set("d", 4);
    loop.settle();
    EXPECT_THAT(problems, SizeIs(2)) << "after a success it is news again";
}

TEST_F(PlistUserDefaultsTest, AFolderThatCannotBeMadeIsReportedAndTheProgramGoesOn) {
    folder.write("config", "a file");
    const auto defaults = start();
    loop.settle();
    defaults->set("a", 1);
    loop.settle();
    EXPECT_THAT(problems, ElementsAre(HasSubstr("cannot be saved")));
    EXPECT_THAT(defaults->value("a"), Optional(PropertyValue(1)));
    fs::remove(folder.path() / "config");
    EXPECT_TRUE(defaults->flush());
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", 1}}));
}

TEST_F(PlistUserDefaultsTest, WhatCannotBeReadIsNeverReplaced) {
    fs::create_directories(file);
    const auto defaults = start();
    defaults->set("a", 1);
    loop.settle();
    EXPECT_FALSE(defaults->flush());
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_THAT(problems, ElementsAre(HasSubstr("cannot be read")));
}

TEST_F(PlistUserDefaultsTest, WhatNoFileCanHoldIsReported) {
    const auto defaults = start();
    PropertyValue nested;
    for (std::size_t depth = 0; depth <= kPropertyListDepth; ++depth) {
        nested = PropertyArray{nested};
    }
    defaults->set("deep", nested);
    EXPECT_FALSE(defaults->flush());
    EXPECT_THAT(problems, ElementsAre(HasSubstr("too large")));
}

TEST_F(PlistUserDefaultsTest, ALinkedFileStaysLinked) {
    const fs::path target = folder.makeFolder("dotfiles") / "pello.plist";
    fs::create_directories(file.parent_path());
    fs::create_symlink(target, file);
    const auto defaults = start();
    defaults->set("a", 1);
    loop.settle();
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_FALSE(fs::is_symlink(target));
    EXPECT_EQ(onDisk(), (PropertyDictionary{{"a", 1}}));

    std::ofstream(target, std::ios::binary) << *serializePropertyList(PropertyDictionary{});
    watcher.touch(target.parent_path());
    loop.settle();
    EXPECT_THAT(defaults->value("a"), Eq(std::nullopt));
}

} // namespace
} // namespace pello
