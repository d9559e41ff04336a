#include "platform/bundles/InfoPlistBundleReader.h"

#include "platform/bundles/InfoDictionary.h"
#include "platform/bundles/PropertyList.h"
#include "sources/ApplicationScan.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

bool isListed(const fs::path& bundle, const char* key, const PropertyValue& value) {
    return describeBundle(bundle, {{key, value}}).has_value();
}

TEST(InfoDictionaryTest, BackgroundProgramsAreNotListed) {
    const std::vector<PropertyValue> truths = {true, 1, -2, 0.5, "1", "YES", "true"};
    for (const PropertyValue& truth : truths) {
        EXPECT_FALSE(isListed("/Applications/A.app", "LSBackgroundOnly", truth));
    }
    const std::vector<PropertyValue> untruths = {
        false, 0, 0.0, "0", "", "yes", "TRUE", "True", "NO", " 1", PropertyArray{1}, Date{1}};
    for (const PropertyValue& untruth : untruths) {
        EXPECT_TRUE(isListed("/Applications/A.app", "LSBackgroundOnly", untruth));
    }
}

TEST(InfoDictionaryTest, AgentsOfTheSystemAreNotListed) {
    EXPECT_FALSE(isListed("/System/Library/CoreServices/A.app", "LSUIElement", "1"));
    EXPECT_TRUE(isListed("/System/Library/CoreServices/A.app", "LSUIElement", "yes"));
    EXPECT_TRUE(isListed("/Applications/A.app", "LSUIElement", "1"));
    EXPECT_TRUE(isListed("/SystemX/A.app", "LSUIElement", true));
}

TEST(InfoDictionaryTest, TheDisplayNameComesFirstIfItIsAString) {
    const auto name = [](const PropertyDictionary& info) {
        return describeBundle("/A.app", info)->name;
    };
    EXPECT_EQ(name({{"CFBundleDisplayName", "Shown"}, {"CFBundleName", "Short"}}), "Shown");
    EXPECT_EQ(name({{"CFBundleDisplayName", 7}, {"CFBundleName", "Short"}}), "Short");
    EXPECT_EQ(name({{"CFBundleDisplayName", " "}, {"CFBundleName", "Short"}}), " ");
    EXPECT_EQ(name({{"CFBundleName", true}}), std::nullopt);
    EXPECT_EQ(describeBundle("/A.app", {{"CFBundleIdentifier", "a.b"}})->bundleIdentifier, "a.b");
}

class BundleFolderTest : public testing::Test {
protected:
    void bundle(const fs::path& name, std::string_view infoPlist) const {
        folder.write(name / "Contents" / "Info.plist", infoPlist);
    }

    TemporaryFolder folder;
    InfoPlistBundleReader reader{folder.path() / "home"};
};

TEST_F(BundleFolderTest, RealBundlesAreScanned) {
    bundle("Xml.app", "<plist version=\"1.0\"><dict><key>CFBundleDisplayName</key>"
                      "<string>An XML &amp; Co</string><key>CFBundleIdentifier</key>"
                      "<string>com.example.xml</string></dict></plist>");
    bundle("Binary.app", *serializePropertyList(PropertyDictionary{{"CFBundleName", "Binäry"}}));
    bundle("Background.app", *serializePropertyList(PropertyDictionary{{"LSBackgroundOnly", 1}}));
    bundle("Blank.app", *serializePropertyList(PropertyDictionary{{"CFBundleName", "\n "}}));
    bundle("Damaged.app", "<plist><dict>");
    bundle("List.app", "<plist version=\"1.0\"><array/></plist>");
    bundle("Outer.app/Contents/Inner.app", "");
    folder.makeFolder("No Info.app");
    folder.write("file.app", "");
    folder.makeFolder("Pipe.app/Contents");
    ASSERT_EQ(::mkfifo((folder.path() / "Pipe.app/Contents/Info.plist").c_str(), 0600), 0);
    std::vector<std::string> names;
    for (const auto& application : scanApplications({folder.path()}, reader)) {
        names.push_back(application.name);
    }
    EXPECT_THAT(
        names, ElementsAre("An XML & Co", "Binäry", "Damaged", "List", "No Info", "Outer", "Pipe"));
    EXPECT_EQ(reader.describe(folder.path() / "Xml.app")->bundleIdentifier, "com.example.xml");
}

} // namespace
} // namespace pello
