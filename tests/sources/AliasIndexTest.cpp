#include "sources/AliasIndex.h"

#include "platform/memory/MemoryAddressHandlers.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryWorkspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::ElementsAre;

class AliasIndexTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> ids() const {
        std::vector<std::string> ids;
        for (const LaunchItem& item : index.items()->items()) {
            ids.push_back(item.id);
        }
        return ids;
    }

    MemoryMainLoop loop;
    MemoryAddressHandlers handlers;
    MemoryWorkspace workspace;
    AliasIndex index{loop, handlers, workspace};
};

TEST_F(AliasIndexTest, AnItemShowsWhatOpensItsAddressAndOpensIt) {
    handlers.applications["https"] = "/apps/browser";
    const auto mail = aliasItem({.alias = " Mail ", .url = "mail.test"}, handlers, workspace);
    ASSERT_TRUE(mail);
    EXPECT_EQ(mail->id, "alias:mail");
    EXPECT_EQ(mail->title, "Mail");
    EXPECT_EQ(mail->subtitle, "https://mail.test");
    EXPECT_EQ(mail->accessory, "Alias");
    EXPECT_EQ(mail->icon, LaunchItem::Icon(LaunchItem::FileIcon{"/apps/browser"}));
    EXPECT_THAT(mail->keywords, ElementsAre("Mail"));
    mail->run();
    EXPECT_THAT(workspace.openedAddresses, ElementsAre("https://mail.test"));

    const auto notes = aliasItem({.alias = "Notes", .url = "notes:today"}, handlers, workspace);
    ASSERT_TRUE(notes);
    EXPECT_EQ(notes->icon, LaunchItem::Icon(LaunchItem::SymbolIcon{"link"}));
}

TEST_F(AliasIndexTest, PublishesTheUsableAliasesInTheirOrder) {
    int changes = 0;
    index.onIndexChanged = [&] { ++changes; };
    const std::vector<URLAlias> aliases{{.alias = "b", .url = "b.test"},
                                        {.alias = " ", .url = "c.test"},
                                        {.alias = "A", .url = "a.test"},
                                        {.alias = "d", .url = "not one"}};
    index.configure(aliases);
    index.configure(aliases);
    loop.settle();
    EXPECT_THAT(ids(), ElementsAre("alias:b", "alias:a"));
    EXPECT_EQ(changes, 1);
    index.configure({});
    loop.settle();
    EXPECT_THAT(ids(), ElementsAre());
}

TEST_F(AliasIndexTest, AliasesRemovedBeforeTheirItemsWereMadeDoNotAppear) {
    index.configure({{.alias = "a", .url = "a.test"}});
    index.configure({});
    loop.settle();
    EXPECT_THAT(ids(), ElementsAre());
}

} // namespace
} // namespace pello
