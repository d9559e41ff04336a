#include "scripts/ScriptsIndex.h"

#include "platform/memory/MemoryFileAccess.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryMainLoop.h"
#include "scripts/SampleScript.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace pello {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class ScriptsIndexTest : public testing::Test {
protected:
    ScriptsIndexTest() {
        index.onIndexChanged = [this] { ++changes; };
        index.onNeedsArgument = [this](const ScriptCommand& command) {
            asked.push_back(command.name);
        };
    }

    fs::path addScript(const std::string& name, const std::string& text, int mode = 0700) {
        const fs::path file = folder.write("Scripts/" + name, text);
        fs::permissions(file, fs::perms(mode));
        return file;
    }

    void scan() {
        index.rescan();
        loop.settle();
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const ScriptCommand& command : index.commands()) {
            names.push_back(command.name);
        }
        return names;
    }

    TemporaryFolder folder;
    fs::path directory = folder.path() / "Scripts";
    MemoryMainLoop loop;
    MemoryFolderWatcher watcher;
    MemoryFileAccess access;
    std::vector<std::string> ran;
    std::vector<std::string> asked;
    int changes = 0;
    ScriptsIndex index{loop, watcher, access, directory,
                       [this](const ScriptCommand& command, std::string_view argument) {
                           ran.push_back(command.name + '|' + std::string(argument));
                       }};
};

TEST_F(ScriptsIndexTest, ListsExecutableFilesByNameAndSaysWhatIsWrongWithOthers) {
    addScript("b.sh", "# pello.name: élan\n");
    addScript("a", "");
    addScript("z", "# pello.name: Day\n");
    addScript("latin", "# \xe9\n");
    addScript("plain", "echo\n", 0600);
    access.forbidden.insert(addScript("others", "", 0755));
    addScript("spaced", "# pello.keyword: a b\n");
    addScript(".hidden", "");
    folder.makeFolder("Scripts/folder");
    fs::create_symlink("a", directory / "link");
    fs::create_symlink("nowhere", directory / "broken");
    fs::create_symlink("folder", directory / "way");
    addScript("odd", "# pello.argument: maybe\n# pello.confirm: on\n# pello.names: x\n");
    scan();
    EXPECT_THAT(names(), ElementsAre("A", "Day", "élan", "Latin", "Link", "Odd", "Spaced"));
    EXPECT_THAT(
        index.problems(),
        ElementsAre(
            ScriptScan::Problem{directory / "broken", "it leads nowhere"},
            ScriptScan::Problem{directory / "latin",
                                "its header is not UTF-8 text, and is ignored"},
            ScriptScan::Problem{directory / "odd",
                                "its argument “maybe” is neither none, optional nor required"},
            ScriptScan::Problem{directory / "odd", "its confirm “on” is neither true nor false"},
            ScriptScan::Problem{directory / "odd",
                                "its line “pello.names” is not known, and is ignored"},
            ScriptScan::Problem{directory / "others", "it is not executable"},
            ScriptScan::Problem{directory / "plain", "it is not executable"},
            ScriptScan::Problem{directory / "spaced",
                                "its keyword contains a space, and is ignored"}));
}

TEST_F(ScriptsIndexTest, AnItemRunsItsCommandOrAsksForTheArgument) {
    const fs::path file = addScript("backup.sh", "# pello.keyword: bk\n"
                                                 "# pello.description: To the server\n"
                                                 "# pello.confirm: yes\n");
    addScript("other", "# pello.argument: required\n");
    scan();
    const auto items = index.items()->items();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].id, "script:" + file.string());
    EXPECT_EQ(items[0].subtitle, "To the server");
    EXPECT_EQ(items[0].accessory, "Script");
    EXPECT_THAT(items[0].keywords, ElementsAre("script", "bk", "To", "the", "server"));
    EXPECT_TRUE(items[0].requiresConfirmation);
    EXPECT_EQ(items[0].revealURL, file);
    EXPECT_EQ(items[1].subtitle, "other");
    items[0].run();
    items[1].run();
    EXPECT_THAT(ran, ElementsAre("Backup|"));
    EXPECT_THAT(asked, ElementsAre("Other"));
}

TEST_F(ScriptsIndexTest, MakesTheFolderAndScansAgainWhenItHasBeenQuiet) {
    scan();
    EXPECT_TRUE(fs::is_directory(directory));
    EXPECT_THAT(names(), IsEmpty());
    addScript("new", "");
    watcher.touch(directory);
    loop.advance(200ms);
    watcher.touch(directory);
    loop.advance(200ms);
    EXPECT_THAT(names(), IsEmpty()) << "not quiet yet";
    loop.advance(100ms);
    loop.settle();
    EXPECT_THAT(names(), ElementsAre("New"));

    fs::remove_all(directory);
    watcher.touch(directory);
    loop.advance(300ms);
    loop.settle();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_TRUE(fs::is_directory(directory)) << "made again";
}

TEST_F(ScriptsIndexTest, AnEditBehindALinkCounts) {
    const fs::path file = folder.write("elsewhere/tool", "# pello.name: Before\n");
    fs::permissions(file, fs::perms(0700));
    fs::create_directories(directory);
    fs::create_symlink(file, directory / "link");
    scan();
    EXPECT_THAT(names(), ElementsAre("Before"));
    folder.write("elsewhere/tool", "# pello.name: After\n");
    watcher.touch(file.parent_path());
    loop.advance(300ms);
    loop.settle();
    EXPECT_THAT(names(), ElementsAre("After"));
}

TEST_F(ScriptsIndexTest, TheSampleIsWrittenOnceAndIsACommand) {
    const auto file = SampleScript::write(directory);
    ASSERT_EQ(file, directory / "hello-pello");
    EXPECT_EQ(fs::status(*file).permissions(), fs::perms(0755));
    scan();
    ASSERT_THAT(names(), ElementsAre("Hello Pello"));
    EXPECT_EQ(index.commands()[0].keyword, "hello");
    EXPECT_EQ(index.commands()[0].argument, ScriptCommand::Argument::optional);
    std::ofstream(*file) << "mine";
    EXPECT_EQ(SampleScript::write(directory), *file);
    EXPECT_EQ(fs::file_size(*file), 4U) << "never replaced";
}

} // namespace
} // namespace pello
