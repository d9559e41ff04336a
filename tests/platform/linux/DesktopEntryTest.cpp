#include "platform/linux/DesktopEntry.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

DesktopEntry entry(std::string_view lines) {
    return *DesktopEntry::parse("[Desktop Entry]\n" + std::string(lines));
}

std::vector<std::string> localesFor(std::map<std::string, std::string, std::less<>> variables) {
    return messageLocales({std::move(variables)});
}

TEST(DesktopEntryTest, ReadsTheMainGroupOnly) {
    const auto read = DesktopEntry::parse("\xEF\xBB\xBF# comment\r\nName=stray\r\n"
                                          "[Desktop Entry]\r\nName = Editor \r\n#Name=No\r\n"
                                          "garbage\r\n=nothing\r\nExec=a=b\r\n"
                                          "[Desktop Action new]\r\nName=New\r\n");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->string("Name"), "Editor");
    EXPECT_EQ(read->string("Exec"), "a=b");
    EXPECT_EQ(read->string("Icon"), std::nullopt);
    EXPECT_FALSE(DesktopEntry::parse(""));
    EXPECT_FALSE(DesktopEntry::parse("Name=x\n[Other]\nName=y"));
    EXPECT_FALSE(DesktopEntry::parse("[Desktop Entry\nName=y"));
}

TEST(DesktopEntryTest, EscapesAreResolved) {
    const DesktopEntry read = entry(R"(Text=\sa\tb\nc\\d\re\q\)");
    EXPECT_EQ(read.string("Text"), " a\tb\nc\\d\re\\q\\");
    EXPECT_TRUE(entry("F=true").flag("F"));
    EXPECT_FALSE(entry("F=True").flag("F"));
    EXPECT_FALSE(entry("").flag("F"));
}

TEST(DesktopEntryTest, ListsSplitAtSemicolons) {
    EXPECT_THAT(entry(R"(L=a;b c;;x\;y;\sz\\;end)").list("L"),
                Optional(ElementsAre("a", "b c", "x;y", " z\\", "end")));
    EXPECT_THAT(entry("L=").list("L"), Optional(IsEmpty()));
    EXPECT_EQ(entry("").list("L"), std::nullopt);
}

TEST(DesktopEntryTest, TheNearestTranslationIsTaken) {
    const DesktopEntry read =
        entry("Name=none\nName[de]=de\nName[de_AT]=de_AT\nName[de@euro]=de@euro\n"
              "Name[de_AT@euro]=all\nName[sr]=sr\nName[fr]=\nKeywords=a;b\nKeywords[de]=c;d\n");
    const auto name = [&](const char* locale) {
        return read.localizedString("Name", localesFor({{"LC_MESSAGES", locale}}));
    };
    EXPECT_EQ(name("de_AT.UTF-8@euro"), "all");
    EXPECT_EQ(name("de_DE@euro"), "de@euro");
    EXPECT_EQ(name("de_AT.UTF-8"), "de_AT");
    EXPECT_EQ(name("de_CH"), "de");
    EXPECT_EQ(name("sr@latin"), "sr");
    EXPECT_EQ(name("fr_FR"), "none") << "left empty by the translator";
    EXPECT_EQ(name("C.UTF-8"), "none");
    EXPECT_THAT(read.localizedList("Keywords", {"de"}), Optional(ElementsAre("c", "d")));
}

TEST(DesktopEntryTest, TheEnvironmentNamesTheLocales) {
    EXPECT_THAT(localesFor({{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", "fr_FR"}}),
                ElementsAre("fr_FR", "fr"));
    EXPECT_THAT(localesFor({{"LC_ALL", "it"}, {"LC_MESSAGES", "fr"}}), ElementsAre("it"));
    EXPECT_THAT(localesFor({{"LANG", "en_GB"}, {"LANGUAGE", "de_AT:pt"}}),
                ElementsAre("de_AT", "de", "pt", "en_GB", "en"));
    EXPECT_THAT(localesFor({{"LANG", "C"}, {"LANGUAGE", "de"}}), IsEmpty());
    EXPECT_THAT(localesFor({}), IsEmpty());
}

TEST(DesktopEntryTest, OnlySmallRegularFilesAreRead) {
    const TemporaryFolder folder;
    const std::string content = "[Desktop Entry]\nName=x\n";
    EXPECT_TRUE(readDesktopEntry(folder.write("a.desktop", content)));
    EXPECT_FALSE(readDesktopEntry(folder.write("b.desktop", content + std::string(2 << 20, '#'))));
    EXPECT_FALSE(readDesktopEntry(folder.makeFolder("c.desktop")));
    EXPECT_FALSE(readDesktopEntry(folder.path() / "missing.desktop"));
}

} // namespace
} // namespace pello
