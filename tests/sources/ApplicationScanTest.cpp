#include "sources/ApplicationScan.h"

#include "platform/memory/MemoryBundleReader.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class ApplicationScanTest : public testing::Test {
protected:
    /// Makes the file `relative` an application that names itself `name`.
    void add(const fs::path& relative, std::optional<std::string> name = std::nullopt) {
        reader.descriptions[folder.write(relative, "")] = {
            .name = std::move(name), .bundleIdentifier = {}, .keywords = {}};
    }

    std::vector<std::string> scan(const std::vector<fs::path>& relatives) const {
        std::vector<fs::path> directories;
        directories.reserve(relatives.size());
        for (const fs::path& relative : relatives) {
            directories.push_back(folder.path() / relative);
        }
        std::vector<std::string> names;
        for (const auto& application : scanApplications(directories, reader)) {
            names.push_back(application.name);
        }
        return names;
    }

    TemporaryFolder folder;
    MemoryBundleReader reader{"app"};
};

TEST_F(ApplicationScanTest, WalksThreeLevelsDeep) {
    add("Applications/One.app");
    add("Applications/Tools/Two.app");
    add("Applications/Tools/Editors/Three.app");
    add("Applications/Tools/Editors/Old/Four.app");
    EXPECT_THAT(scan({"Applications"}), ElementsAre("One", "Three", "Two"));
}

TEST_F(ApplicationScanTest, EntersPlainFoldersOnly) {
    add("Outer.app/Inner.app");
    add("Kit.framework/Tool.app");
    add(".hidden/Secret.app");
    add(".Dot.app");
    add("Upper.APP");
    add("Other.application");
    add("Shelf/Real.app");
    fs::create_directory_symlink(folder.path() / "Shelf", folder.path() / "Link");
    EXPECT_THAT(scan({"."}), ElementsAre("Real"));
}

TEST_F(ApplicationScanTest, LinksNamedLikeApplicationsCount) {
    add("elsewhere/Real.app");
    const fs::path link = folder.makeFolder("Applications") / "Linked.app";
    fs::create_symlink(folder.path() / "elsewhere/Real.app", link);
    reader.descriptions[link] = {};
    EXPECT_THAT(scan({"Applications"}), ElementsAre("Linked"));
}

TEST_F(ApplicationScanTest, AFolderListedTwiceGivesEachApplicationOnce) {
    add("A/Editor.app");
    add("B/Editor.app");
    EXPECT_THAT(scan({"A", "B", "A", "./A/"}), ElementsAre("Editor", "Editor"));
    EXPECT_EQ(reader.describedCount(), 2) << "the second time it is not read again";
    add("A/Tools/Knife.app");
    EXPECT_THAT(scan({"A", "A/Tools", "."}), ElementsAre("Editor", "Editor", "Knife"))
        << "whichever folder it is found below";
}

TEST_F(ApplicationScanTest, SomeApplicationsAreAlwaysListed) {
    add("CoreServices/Finder.app");
    reader.always = {folder.path() / "CoreServices/Finder.app", folder.path() / "Missing.app"};
    EXPECT_THAT(scan({}), ElementsAre("Finder"));
    EXPECT_THAT(scan({"CoreServices", "no such folder"}), ElementsAre("Finder"));
}

TEST_F(ApplicationScanTest, NamesAreTrimmedAndMustSaySomething) {
    add("a.app", "\u200E \n Café\x01\t");
    add("b.app", " \r\n ");
    add("c.app", "---");
    add("d.app", "٣");
    add("E. Coli.app");
    add("f.app", "bad \xFF byte");
    EXPECT_THAT(scan({"."}), ElementsAre("٣", "bad \uFFFD byte", "Café", "E. Coli"));
}

} // namespace
} // namespace pello
