#include "sources/ApplicationItem.h"

#include "platform/memory/MemoryWorkspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ApplicationItemTest, TheItemOpensAndRevealsTheApplication) {
    MemoryWorkspace workspace;
    const LaunchItem item = applicationItem({.url = "/home/ann/Applications/./My Editor.app",
                                             .name = "My Editor",
                                             .bundleIdentifier = "com.example.Editor",
                                             .keywords = {"text", "notes"}},
                                            "/home/ann", workspace);
    EXPECT_EQ(item.id, "app:/home/ann/Applications/My Editor.app");
    EXPECT_EQ(item.title, "My Editor");
    EXPECT_EQ(item.subtitle, "~/Applications");
    EXPECT_EQ(item.kind, LaunchItem::Kind::application);
    EXPECT_EQ(item.icon, LaunchItem::Icon(LaunchItem::FileIcon{*item.revealURL}));
    EXPECT_THAT(item.keywords, ElementsAre("com", "example", "Editor", "ME", "text", "notes"));
    EXPECT_FALSE(item.requiresConfirmation || item.isEphemeral || item.accessory);
    item.run();
    EXPECT_THAT(workspace.openedApplications, ElementsAre(*item.revealURL));
}

TEST(ApplicationItemTest, KeywordsAreIdentifierPartsAndInitials) {
    EXPECT_THAT(applicationKeywords("Visual Studio Code", {}), ElementsAre("VSC"));
    EXPECT_THAT(applicationKeywords("Tic-Tac  - toe", {}), ElementsAre("TTt"));
    EXPECT_THAT(applicationKeywords("Safari", "com..apple.Safari."),
                ElementsAre("com", "apple", "Safari"));
    EXPECT_THAT(applicationKeywords("Éditeur e\u0301lan", {}), ElementsAre("Ée\u0301"));
    EXPECT_THAT(applicationKeywords("-Solo ", {}), IsEmpty());
}

TEST(ApplicationItemTest, TheHomeFolderIsShortenedAtAPathBoundaryOnly) {
    EXPECT_EQ(displayPath("/home/ann/X.app", "/home/ann"), "~");
    EXPECT_EQ(displayPath("/home/ann/a/X.app", "/home/ann/"), "~/a");
    EXPECT_EQ(displayPath("/home/anna/X.app", "/home/ann"), "/home/anna");
    EXPECT_EQ(displayPath("/Applications/X.app", "/home/ann"), "/Applications");
    EXPECT_EQ(displayPath("/X.app", "/"), "/");
    EXPECT_EQ(displayPath("/usr/X.app", ""), "/usr");
}

} // namespace
} // namespace pello
