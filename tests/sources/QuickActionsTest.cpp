#include "sources/QuickActions.h"

#include "platform/memory/MemoryFileAccess.h"
#include "platform/memory/MemoryFolderWatcher.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/memory/MemoryWorkspace.h"
#include "sources/TypedAddress.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;

class QuickActionsTest : public testing::Test {
protected:
    QuickActionsTest() {
        actions.prepare({.locale = "en_US", .timeZone = "UTC"});
        loop.settle();
    }

    std::vector<LaunchItemRef> items(std::string_view query) {
        return actions.items(query, settings);
    }

    /// The ids of the items of `query`, in order, but for the web search at the end.
    std::vector<std::string> ids(std::string_view query) {
        std::vector<std::string> ids;
        for (const LaunchItemRef& item : items(query)) {
            ids.push_back(item->id);
        }
        EXPECT_EQ(ids.back(), "search:" + std::string(query));
        ids.pop_back();
        return ids;
    }

    MemoryMainLoop loop{Date{100'000'000}};
    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings{defaults, loginItem};
    MemoryWorkspace workspace;
    MemoryPasteboard pasteboard;
    QuickActions actions{loop, workspace, pasteboard};
};

TEST_F(QuickActionsTest, StandInTheirOrder) {
    settings.bangs.set(
        {{.keyword = "3", .name = "Three", .addressTemplate = "https://a.test/{query}"},
         {.keyword = "2.50", .name = "Mark", .addressTemplate = "https://b.test/"}});
    EXPECT_THAT(ids("3 + 4"), ElementsAre("bang:3:+ 4", "calc:7"));
    EXPECT_THAT(ids("3 km"), ElementsAre("bang:3:km", "convert:unit:1.86411 mi"));
    EXPECT_THAT(ids("2.50"), ElementsAre("bang:2.50:", "url:https://2.50"));
    EXPECT_THAT(items(" \t"), IsEmpty());
}

TEST_F(QuickActionsTest, AScriptStandsBetweenBangAndAnswer) {
    const TemporaryFolder folder;
    for (const auto& [name, mode] : {std::pair("1", "optional"), {"2", "none"}}) {
        const auto file =
            folder.write(name, std::string("# pello.keyword: ") + name +
                                   "\n# pello.argument: " + mode + "\n# pello.confirm: yes\n");
        std::filesystem::permissions(file, std::filesystem::perms(0700));
    }
    std::string ran;
    MemoryFolderWatcher watcher;
    const MemoryFileAccess access;
    ScriptsIndex scripts(loop, watcher, access, folder.path(),
                         [&](const ScriptCommand& command, std::string_view argument) {
                             ran = command.name + '|' + std::string(argument);
                         });
    scripts.rescan();
    loop.settle();
    settings.bangs.set(
        {{.keyword = "1", .name = "One", .addressTemplate = "https://a.test/{query}"}});
    const auto items = actions.items("1 + 4", settings, &scripts);
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(items[0]->id, "bang:1:+ 4");
    EXPECT_EQ(items[1]->id, "script-run:1:+ 4");
    EXPECT_EQ(items[1]->title, "1: + 4");
    EXPECT_EQ(items[1]->subtitle, "1") << "without a description, the file";
    EXPECT_TRUE(items[1]->requiresConfirmation);
    EXPECT_EQ(items[2]->id, "calc:5");
    items[1]->run();
    EXPECT_EQ(ran, "1|+ 4");
    EXPECT_EQ(actions.items("1 ", settings, &scripts).size(), 1U) << "no argument";
    EXPECT_EQ(actions.items("2 x", settings, &scripts).size(), 1U) << "it takes none";
}

TEST_F(QuickActionsTest, ABangWaitsForTheTextItWants) {
    EXPECT_THAT(ids("g"), IsEmpty());
    const auto bang = items("G salt & pepper").front();
    EXPECT_EQ(bang->title, "Google: salt & pepper");
    EXPECT_EQ(bang->subtitle, "https://www.google.com/search?q=salt%20%26%20pepper");
    EXPECT_EQ(bang->accessory, "g");
    EXPECT_TRUE(bang->isEphemeral);
    bang->run();
    EXPECT_THAT(workspace.openedAddresses, ElementsAre(*bang->subtitle));

    settings.bangs.set({{.keyword = "mail", .name = "Post", .addressTemplate = "https://m.test/"}});
    EXPECT_EQ(items("Mail").front()->title, "Open Post");
}

TEST_F(QuickActionsTest, ThePasteboardIsReadOnlyForABangThatAsksForIt) {
    pasteboard.setText("guten Tag");
    settings.bangs.set(
        {{.keyword = "tr", .name = "Translate", .addressTemplate = "https://t.test/{clipboard}"},
         {.keyword = "x", .name = "Other", .addressTemplate = "https://x.test/{query}"}});
    static_cast<void>(items("t"));
    static_cast<void>(items("x y"));
    EXPECT_EQ(pasteboard.readings, 0);
    EXPECT_EQ(items("tr").front()->subtitle, "https://t.test/guten%20Tag");
    EXPECT_EQ(pasteboard.readings, 1);
}

TEST_F(QuickActionsTest, AnswersGoToThePasteboard) {
    const auto sum = items(" 1000*2 ").front();
    EXPECT_EQ(sum->title, "2,000");
    EXPECT_EQ(sum->subtitle, "1000*2");
    EXPECT_EQ(sum->kind, LaunchItem::Kind::calculation);
    sum->run();
    EXPECT_EQ(pasteboard.text(), "2,000");
    const auto distance = items("5 km").front();
    EXPECT_EQ(distance->subtitle, "5 kilometers in miles");
    distance->run();
    EXPECT_EQ(pasteboard.text(), "3.10686 mi");
}

TEST_F(QuickActionsTest, TheWebSearchTakesTheChosenEngineAndTheTextWithoutBlanks) {
    settings.searchEngine.set(WebSearchEngine::kagi);
    const auto search = items(" salt & pepper ").front();
    EXPECT_EQ(search->id, "search:salt & pepper");
    EXPECT_EQ(search->title, "Search for “salt & pepper”");
    EXPECT_EQ(search->subtitle, "Kagi");
    search->run();
    EXPECT_THAT(workspace.openedAddresses,
                ElementsAre("https://kagi.com/search?q=salt%20&%20pepper"));
}

TEST_F(QuickActionsTest, BeforeTheyArePreparedThereAreNoAnswers) {
    QuickActions fresh(loop, workspace, pasteboard);
    int changes = 0;
    fresh.onChanged = [&] { ++changes; };
    EXPECT_EQ(fresh.items("1+1", settings).size(), 1U) << "the web search needs no preparation";
    fresh.prepare({});
    fresh.prepare({.locale = "de_DE"});
    loop.settle();
    EXPECT_EQ(changes, 1) << "only the last preparation counts";
    EXPECT_EQ(fresh.items("10/4", settings).front()->title, "2,5");
}

TEST_F(QuickActionsTest, KeepsUpWithTheMachinesTimeZone) {
    QuickActions travelling(loop, workspace, pasteboard);
    const auto tomorrow = [&] { return travelling.items("tomorrow", settings).front()->title; };
    loop.setNow(Date::fromUnix(1'795'302'000)); // 23:00 on 21 November 2026, UTC
    ::setenv("TZ", "UTC", 1);
    travelling.prepare({.locale = "en_US"});
    loop.settle();
    EXPECT_EQ(tomorrow(), "Sunday, November 22, 2026");
    ::setenv("TZ", "Asia/Tokyo", 1);
    travelling.keepUp();
    loop.settle();
    EXPECT_EQ(tomorrow(), "Monday, November 23, 2026");
}

TEST(TypedAddressTest, IsAnAddressOfACommonSchemeOrAHostName) {
    for (const char* address : {"http://a", "HTTPS://a.test", "ftp://a/b", "mailto:a@b.test",
                                "ssh://host", "file:///tmp"}) {
        EXPECT_THAT(detectURL(address), Optional(Eq(address)));
    }
    EXPECT_THAT(detectURL(" example.org/a?b "), Optional(Eq("https://example.org/a?b")));
    EXPECT_THAT(detectURL("müller.de"), Optional(Eq("https://müller.de")));
    EXPECT_THAT(detectURL("a.b.co/x.y z"), Eq(std::nullopt));
    for (const char* text :
         {"", " ", "word", ".net", "a.b", "a.b/cc.dd", "a.", "a..bc", "javascript:alert(1).com",
          "javascript:alert(\"a.test\")", "x+y-1.z:[a.test", "localhost:3000", "x.test:8080",
          "example.org a", "a/b.test"}) {
        EXPECT_THAT(detectURL(text), Eq(std::nullopt)) << text;
    }
}

} // namespace
} // namespace pello
