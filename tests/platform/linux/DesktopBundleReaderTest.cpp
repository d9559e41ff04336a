#include "platform/linux/DesktopBundleReader.h"

#include "platform/linux/DesktopIconSource.h"
#include "sources/ApplicationScan.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class DesktopBundleReaderTest : public testing::Test {
protected:
    DesktopBundleReaderTest() {
        set("HOME", folder.path() / "home");
        set("XDG_DATA_DIRS",
            (folder.path() / "one").string() + ":" + (folder.path() / "two").string());
        set("PATH", "/usr/bin:/bin");
    }

    void set(const std::string& name, const std::string& value) {
        environment.variables.insert_or_assign(name, value);
    }

    fs::path add(const fs::path& relative, std::string_view lines) const {
        return folder.write(relative,
                            "[Desktop Entry]\nType=Application\nExec=true\n" + std::string(lines));
    }

    std::optional<BundleDescription> describe(std::string_view lines) const {
        return DesktopBundleReader(environment).describe(add("x/entry.desktop", lines));
    }

    bool isListed(std::string_view lines) const { return describe(lines).has_value(); }

    std::vector<std::string> scan() const {
        const DesktopBundleReader reader(environment);
        std::vector<std::string> names;
        for (const auto& application : scanApplications(reader.standardFolders(), reader)) {
            names.push_back(application.name);
        }
        return names;
    }

    TemporaryFolder folder;
    Environment environment;
};

TEST_F(DesktopBundleReaderTest, TheFirstFolderWinsAndMayHide) {
    add("home/.local/share/applications/editor.desktop", "Name=My Editor\n");
    add("home/.local/share/applications/viewer.desktop", "Name=Viewer\nNoDisplay=true\n");
    add("one/applications/editor.desktop", "Name=Editor One\n");
    add("one/applications/kde/term.desktop", "Name=Terminal One\n");
    add("two/applications/kde-term.desktop", "Name=Terminal Two\n");
    add("two/applications/viewer.desktop", "Name=Viewer Two\n");
    add("two/applications/org.example.Map.desktop", "Name=Map\n");
    add("home/.local/share/flatpak/exports/share/applications/org.example.Map.desktop",
        "Name=Flatpak Map\n");
    add("home/.local/share/flatpak/exports/share/applications/org.example.Paint.desktop",
        "Name=Flatpak Paint\n");
    EXPECT_THAT(scan(), ElementsAre("Flatpak Paint", "Map", "My Editor", "Terminal One"));
}

TEST_F(DesktopBundleReaderTest, LinkedEntriesAndFoldersOfEntriesCount) {
    add("real/a.desktop", "Name=Linked\n");
    fs::create_directories(folder.path() / "one");
    fs::create_directory_symlink(folder.path() / "shared", folder.path() / "one/applications");
    fs::create_directories(folder.path() / "shared");
    fs::create_symlink(folder.path() / "real/a.desktop", folder.path() / "shared/a.desktop");
    fs::create_symlink(folder.path() / "gone", folder.path() / "shared/dangling.desktop");
    EXPECT_THAT(scan(), ElementsAre("Linked"));
}

TEST_F(DesktopBundleReaderTest, SomeEntriesAreNotMeantForTheMenu) {
    EXPECT_TRUE(isListed("Name=A\n"));
    EXPECT_FALSE(isListed("Name=A\nHidden=true\n"));
    EXPECT_FALSE(isListed("Name=A\nNoDisplay=true\n"));
    EXPECT_FALSE(isListed("Name=A\nType=Link\n"));
    EXPECT_FALSE(isListed("Name=A\nTryExec=no-such-program\n"));
    EXPECT_FALSE(isListed("Name=A\nTryExec=/etc/passwd\n"));
    EXPECT_TRUE(isListed("Name=A\nTryExec=sh\n"));
    EXPECT_TRUE(isListed("Name=A\nTryExec=/bin/sh\n"));
    EXPECT_FALSE(isListed("Name=A\nExec=\n"));
    EXPECT_FALSE(isListed("Name=A\nExec=\"open\n"));
    EXPECT_TRUE(isListed("Name=A\nExec=\nDBusActivatable=true\n"));
}

TEST_F(DesktopBundleReaderTest, TheDesktopsNamesDecideInTheirOrder) {
    EXPECT_FALSE(isListed("OnlyShowIn=GNOME;\n")) << "no desktop";
    EXPECT_TRUE(isListed("NotShowIn=GNOME;\n"));
    set("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_TRUE(isListed("OnlyShowIn=KDE;GNOME;\n"));
    EXPECT_FALSE(isListed("OnlyShowIn=KDE;\n"));
    EXPECT_FALSE(isListed("OnlyShowIn=\n"));
    EXPECT_FALSE(isListed("NotShowIn=GNOME;\n"));
    EXPECT_TRUE(isListed("NotShowIn=GNOME;\nOnlyShowIn=ubuntu;\n")) << "ubuntu comes first";
    EXPECT_FALSE(isListed("NotShowIn=ubuntu;\nOnlyShowIn=GNOME;\n"));
}

TEST_F(DesktopBundleReaderTest, WordsAreTranslatedAndTheUntranslatedNameStays) {
    set("LANG", "de_DE.UTF-8");
    const auto found = describe("Name=Files\nName[de]=Dateien\nGenericName=File manager\n"
                                "GenericName[de]=Dateiverwaltung\nKeywords=folder;\n"
                                "Keywords[de]=Ordner; Datei ;Ordner;\n");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, "Dateien");
    EXPECT_THAT(found->keywords, ElementsAre("Dateiverwaltung", "Ordner", "Datei", "Files"));
    const auto plain = describe("Name=Solo\nGenericName=\xFF\n");
    EXPECT_THAT(plain->keywords, ElementsAre("\uFFFD"));
    EXPECT_EQ(describe("Icon=x\n")->name, std::nullopt);
}

TEST_F(DesktopBundleReaderTest, TheIdentifierIsAReverseDomainName) {
    EXPECT_EQ(reverseDomainName("/a/org.mozilla.firefox.desktop"), "org.mozilla.firefox");
    EXPECT_EQ(reverseDomainName("/a/org.example.my-app_2.desktop"), "org.example.my-app_2");
    for (const char* name : {"firefox", "python3.11", "libreoffice7.3.2", "org.mozilla", "a..b.c",
                             ".a.b.c", "a.b.c.", "a.b c.d"}) {
        EXPECT_EQ(reverseDomainName(std::string(name) + ".desktop"), std::nullopt) << name;
    }
}

TEST_F(DesktopBundleReaderTest, TheIconIsNamedByTheEntry) {
    set("LC_MESSAGES", "fr");
    const DesktopIconSource icons(environment);
    EXPECT_EQ(icons.iconName(add("a.desktop", "Icon=plain\nIcon[fr]=french\n")), "french");
    EXPECT_EQ(icons.iconName(add("b.desktop", "Icon=/opt/x.png\n")), "/opt/x.png");
    EXPECT_EQ(icons.iconName(add("c.desktop", "Icon=\n")), std::nullopt);
    EXPECT_EQ(icons.iconName(folder.write("d.txt", "[Desktop Entry]\nIcon=x")), std::nullopt);
}

} // namespace
} // namespace pello
