#include "ui/icons/IconTheme.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pello {
namespace {

class IconThemeTest : public testing::Test {
protected:
    void index(const std::string& theme, const std::string& header, const std::string& groups) {
        folder.write("icons/" + theme + "/index.theme", "[Icon Theme]\n" + header + "\n" + groups);
    }
    void icon(const std::string& path) { folder.write("icons/" + path, "image"); }

    /// Which image is found, below the folder of the themes.
    std::string find(const std::string& name, int pixels, const std::string& theme = "mine") {
        const auto root = folder.path() / "icons";
        const IconTheme themes(std::vector{theme}, {folder.path() / "none", root});
        const auto found = themes.find(name, pixels);
        return found ? found->lexically_relative(root).string() : "nothing";
    }

    TemporaryFolder folder;
};

TEST_F(IconThemeTest, TakesTheSizeThatFitsAndRatherReducesThanEnlarges) {
    index("mine", "Directories=16,48,256,scalable",
          "[16]\nSize=16\nType=Fixed\n[48]\nSize=48\nType=Fixed\n[256]\nSize=256\nType=Fixed\n"
          "[scalable]\nSize=64\nMinSize=8\nMaxSize=512\nType=Scalable\n");
    icon("mine/16/web.png");
    icon("mine/48/web.png");
    icon("mine/256/web.png");
    EXPECT_EQ(find("web", 16), "mine/16/web.png");
    EXPECT_EQ(find("web", 32), "mine/48/web.png");
    EXPECT_EQ(find("web", 64), "mine/256/web.png");
    EXPECT_EQ(find("web", 999), "mine/256/web.png");
    icon("mine/scalable/web.svg");
    EXPECT_EQ(find("web", 64), "mine/scalable/web.svg");
    EXPECT_EQ(find("web", 48), "mine/48/web.png") << "drawn for this very size";
}

TEST_F(IconThemeTest, FallsBackToParentsThenHicolorThenLooseImages) {
    index("mine", "Inherits=parent\nDirectories=32", "[32]\nSize=32\n");
    index("parent", "Inherits=mine,hicolor\nDirectories=32", "[32]\nSize=32\n");
    index("hicolor", "Directories=32", "[32]\nSize=32\n");
    icon("parent/32/web.png");
    icon("hicolor/32/web.png");
    icon("hicolor/32/only.xpm");
    icon("loose.svg");
    EXPECT_EQ(find("web", 32), "parent/32/web.png");
    EXPECT_EQ(find("only", 32), "hicolor/32/only.xpm");
    EXPECT_EQ(find("loose", 32), "loose.svg");
    EXPECT_EQ(find("web", 32, "no such theme"), "hicolor/32/web.png");
}

TEST_F(IconThemeTest, NonsenseHasNoIcons) {
    folder.write("icons/mine/index.theme",
                 "Directories=before any group\n[Icon Theme\n[Icon Theme]\nDirectories=a,,b,\n"
                 "[a]\nSize=-5\nScale=x\n[b]\nSize=99999999999\nType=Strange\n");
    folder.write("secret.png", "image");
    EXPECT_EQ(find("web", 32), "nothing");
    EXPECT_EQ(find("", 32), "nothing");
    EXPECT_EQ(find("../../secret", 32), "nothing") << "a name is not a path";
    icon("mine/b/web.png");
    EXPECT_EQ(find("web", 32), "mine/b/web.png");
}

} // namespace
} // namespace pello
