#include "core/controller/PelloController.h"

#include "support/MemoryLauncher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;
using testing::SizeIs;

/// A panel that notes what it is asked to do.
class NotingPanel final : public LauncherPanel {
public:
    void present() override { isShown_ = true; }
    void dismiss() override {
        isShown_ = false;
        if (onDismiss) {
            onDismiss();
        }
    }
    [[nodiscard]] bool isPresented() const override { return isShown_; }

    std::function<void()> onDismiss;

private:
    bool isShown_ = false;
};

class PelloControllerTest : public testing::Test, protected MemoryLauncher {
protected:
    PelloControllerTest() { install({"Safari", "Safe Mode", "Terminal", "Text Editor"}); }

    NotingPanel panel;
};

TEST_F(PelloControllerTest, ObserversHearOncePerChangeAndNotOfTheSameText) {
    int announcements = 0;
    const auto counting = controller.changed.connect([&] { ++announcements; });
    controller.setQuery("saf");
    controller.setQuery("saf");
    EXPECT_EQ(announcements, 1);
    controller.setSelection(1);
    controller.setSelection(9);
    controller.setSelection(2);
    EXPECT_EQ(announcements, 3) << "there is no row beyond the third";
    controller.setQuery("");
    controller.refresh();
    EXPECT_EQ(announcements, 4) << "nothing changed";
}

TEST_F(PelloControllerTest, ItsOwnCommandsStandBehindTheApplicationsAndDoWhatTheProgramInstalled) {
    settings.urlAliases.set({{.alias = "Updates", .url = "https://example.org"}});
    loop.settle();
    const Catalogue lists = controller.catalogue();
    EXPECT_EQ(lists[0], indexer.items());
    EXPECT_EQ(lists[2], aliases.items());
    std::vector<std::string> ids;
    for (const LaunchItem& item : lists[1]->items()) {
        ids.push_back(item.id);
    }
    EXPECT_THAT(ids, ElementsAre("cmd:pello-update", "cmd:pello-changelog"));

    pick("check for updates"); // nothing is installed yet
    std::string done;
    controller.onCheckForUpdates = [&] { done += "check "; };
    controller.onShowReleaseNotes = [&] { done += "notes "; };
    pick("upgrade");
    pick("whats new");
    EXPECT_EQ(done, "check notes ");
    EXPECT_TRUE(usage.records().contains("cmd:pello-changelog"));
}

TEST_F(PelloControllerTest, NewResultsClampTheSelectionAndKeepItOtherwise) {
    controller.setQuery("t");
    ASSERT_GT(controller.results().size(), 2U);
    controller.setSelection(2);
    controller.setQuery("te");
    EXPECT_EQ(controller.selection(), 2);
    controller.setQuery("term");
    EXPECT_EQ(controller.selection(), 1);
}

TEST_F(PelloControllerTest, StartingCompactShowsNothingUntilSomethingIsTyped) {
    pick("saf");
    EXPECT_THAT(found(" "), ElementsAre("Safari")) << "the learned list";
    settings.startsCompact.set(true);
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_THAT(found("te"), SizeIs(2));
    controller.setSelection(1);
    EXPECT_THAT(found(""), IsEmpty());
    EXPECT_EQ(controller.selection(), 0);
    controller.setPanel(&panel);
    controller.show();
    reindex();
    EXPECT_THAT(titles(), IsEmpty()) << "a source has news";
}

TEST_F(PelloControllerTest, CompletesTheFirstTitleOnlyWhileTheFirstRowIsSelected) {
    controller.setQuery("saf");
    EXPECT_THAT(controller.inlineCompletion(), Optional(Eq("ari")));
    controller.setSelection(1);
    EXPECT_EQ(controller.inlineCompletion(), std::nullopt);
    controller.acceptCompletion();
    EXPECT_EQ(controller.query(), "saf");
    controller.setSelection(0);
    controller.acceptCompletion();
    EXPECT_EQ(controller.query(), "safari");
    EXPECT_EQ(controller.inlineCompletion(), std::nullopt);
    controller.setQuery("editor");
    EXPECT_EQ(controller.inlineCompletion(), std::nullopt) << "Text Editor begins otherwise";
}

TEST_F(PelloControllerTest, RunningRecordsHidesAndThenOpens) {
    controller.setPanel(&panel);
    controller.show();
    controller.setQuery(" Saf");
    bool wasDismissed = false;
    panel.onDismiss = [&] {
        wasDismissed = true;
        EXPECT_THAT(history.entries(), ElementsAre(" Saf"));
        EXPECT_EQ(usage.boost(idOf("Safari"), "saf"), 0) << "learned only after it is hidden";
    };
    controller.runSelection();
    EXPECT_TRUE(wasDismissed);
    EXPECT_FALSE(panel.isPresented());
    EXPECT_THAT(history.entries(), ElementsAre(" Saf"));
    EXPECT_THAT(workspace.openedApplications, IsEmpty()) << "not before the next turn of the loop";
    loop.settle();
    EXPECT_THAT(workspace.openedApplications, ElementsAre(path("Safari")));
    EXPECT_DOUBLE_EQ(usage.boost(idOf("Safari"), "saf"), 28 + 400);
}

TEST_F(PelloControllerTest, AnswersComeFirstAndAreCopiedWithoutClosing) {
    quickActions.prepare({.locale = "en_US"});
    controller.setPanel(&panel);
    controller.show("2+2");
    EXPECT_THAT(titles(), IsEmpty()) << "not prepared yet";
    loop.settle();
    EXPECT_THAT(titles(), ElementsAre("4"));
    EXPECT_EQ(controller.selectionRemark(), std::nullopt);
    EXPECT_TRUE(controller.copySelection());
    EXPECT_EQ(controller.selectionRemark(), RowRemark::copied);
    EXPECT_TRUE(panel.isPresented());
    EXPECT_EQ(pasteboard.text(), "4");
    controller.setQuery("saf");
    EXPECT_FALSE(controller.copySelection());
    EXPECT_EQ(pasteboard.text(), "4");
}

TEST_F(PelloControllerTest, AliasesAreFoundLikeApplicationsAndFollowTheSettings) {
    settings.urlAliases.set({{.alias = "Safe Deposit", .url = "bank.test"}});
    loop.settle();
    EXPECT_THAT(found("safe dep"), ElementsAre("Safe Deposit"));
    pick("safe dep");
    EXPECT_THAT(workspace.openedAddresses, ElementsAre("https://bank.test"));
    EXPECT_GT(usage.boost("alias:safe deposit", "safe dep"), 0);

    addressHandlers.applications["https"] = "/apps/browser";
    watcher.touch(applications);
    loop.advance(AppIndexer::kQuietPeriod);
    controller.setQuery("safe deposit");
    EXPECT_EQ(controller.results().front().item->icon,
              LaunchItem::Icon(LaunchItem::FileIcon{"/apps/browser"}))
        << "a browser was installed";
}

TEST_F(PelloControllerTest, ScriptsAreFoundAndTakeTheTextAfterTheirKeyword) {
    addScript("backup", "# pello.keyword: bk\n# pello.argument: optional\n");
    pick("backup");
    EXPECT_THAT(found("BK my photos"), ElementsAre("Backup: my photos"));
    pick("bk my photos");
    EXPECT_THAT(scriptRuns, ElementsAre("Backup|", "Backup|my photos"));
    EXPECT_GT(usage.boost("script:" + (folder.path() / "Scripts/backup").string(), "backup"), 0);
    settings.includesScripts.set(false);
    EXPECT_THAT(found("bk my photos"), IsEmpty());
    EXPECT_THAT(found("backup"), IsEmpty());
}

TEST_F(PelloControllerTest, TheSampleScriptIsWrittenOnceShownAndFound) {
    controller.writeSampleScript();
    loop.settle();
    const auto file = folder.path() / "Scripts" / "hello-pello";
    EXPECT_THAT(workspace.revealed, ElementsAre(file));
    reindex();
    EXPECT_THAT(found("hello"), ElementsAre("Hello Pello"));

    std::filesystem::remove_all(file.parent_path());
    folder.write("Scripts", "in the way");
    controller.writeSampleScript();
    loop.settle();
    EXPECT_THAT(controller.notice(), Optional(Eq("The sample script could not be written.")));
}

TEST_F(PelloControllerTest, ARunningScriptSaysSoInItsRowAndIsStoppedThere) {
    controller.setPanel(&panel);
    addScript("backup", "# pello.keyword: bk\n# pello.argument: optional\n");
    const auto accessory = [&] { return controller.results().front().item->accessory; };
    pick("backup");
    pick("bk photos");
    controller.show("backup");
    loop.advance(std::chrono::seconds(65));
    EXPECT_THAT(accessory(), Optional(Eq("Running 1:05"))) << "it counts while it is seen";
    EXPECT_THAT(titles(), ElementsAre("Backup", "Backup: photos"));

    controller.runSelection();
    loop.settle();
    EXPECT_EQ(dialogs.question().title, "Stop “Backup”?");
    EXPECT_EQ(scriptRuns.size(), 2U) << "not started a second time";
    dialogs.answer(Dialogs::Answer::confirmed);
    EXPECT_EQ(processes.started.at(1).terminations, 1);
    loop.settle();
    EXPECT_THAT(accessory(), Optional(Eq("Script")));

    EXPECT_THAT(found("bk photos"), ElementsAre("Backup: photos"));
    EXPECT_THAT(accessory(), Optional(Eq("Running 1:05")));
    EXPECT_TRUE(controller.runAgain());
    loop.settle();
    EXPECT_THAT(processes.started.at(3).program.arguments, ElementsAre("photos"));
    EXPECT_EQ(processes.started.at(2).terminations, 0) << "the first one goes on";
    controller.setQuery("safari");
    EXPECT_FALSE(controller.runAgain());
}

TEST_F(PelloControllerTest, AnArgumentNeverGoesToSomethingElseThanWasChosen) {
    addScript("alpha", "# pello.keyword: bk\n# pello.argument: required\n");
    addScript("zulu", "# pello.keyword: bk\n# pello.argument: required\n");
    addScript("lock", "# pello.keyword: key\n# pello.argument: required\n");
    addScript("ddg", "# pello.keyword: g\n# pello.argument: required\n");
    settings.bangs.set(
        {{.keyword = "g", .name = "G", .addressTemplate = "https://g.test/{query}"}});
    for (const auto& [name, isTypedOn] :
         {std::pair("alpha", true), {"zulu", false}, {"lock", false}, {"ddg", true}}) {
        controller.show(name);
        controller.runSelection();
        loop.settle();
        EXPECT_EQ(!controller.argumentPrompt(), isTypedOn) << name;
        controller.setQuery(controller.query() + "fire");
        controller.runSelection();
        loop.settle();
    }
    EXPECT_THAT(scriptRuns, ElementsAre("Alpha|fire", "Zulu|fire", "Lock|fire", "Ddg|fire"));
}

TEST_F(PelloControllerTest, AScriptThatNeedsAnArgumentAsksForIt) {
    addScript("mail", "# pello.keyword: mail\n# pello.argument: required\n");
    addScript("post", "# pello.argument: required\n");
    controller.setPanel(&panel);
    pick("mail");
    EXPECT_TRUE(panel.isPresented());
    EXPECT_EQ(controller.query(), "mail ") << "the user just types on";
    EXPECT_FALSE(controller.argumentPrompt());

    pick("post");
    EXPECT_THAT(controller.argumentPrompt(), Optional(Eq("Post")));
    EXPECT_THAT(found("  "), IsEmpty());
    EXPECT_THAT(found("saf"), ElementsAre("Post: saf")) << "nothing is searched for";
    controller.setQuery("p");
    EXPECT_EQ(controller.inlineCompletion(), std::nullopt) << "an argument is no beginning";
    controller.leaveArgumentPrompt();
    EXPECT_EQ(controller.query(), "");
    EXPECT_THAT(found("saf"), ElementsAre("Safari", "Safe Mode"));

    pick("post");
    pick("x y ");
    EXPECT_THAT(scriptRuns, ElementsAre("Post|x y"));
    EXPECT_THAT(history.entries(), ElementsAre("post", "mail")) << "an argument is no query";
    controller.show();
    EXPECT_FALSE(controller.argumentPrompt());
}

TEST_F(PelloControllerTest, EphemeralItemsAreRememberedAsQueriesOnly) {
    bool ran = false;
    controller.setQuery("1+1");
    controller.run(std::make_shared<LaunchItem>(LaunchItem{.id = "calc:1+1",
                                                           .title = "2",
                                                           .kind = LaunchItem::Kind::calculation,
                                                           .isEphemeral = true,
                                                           .run = [&] { ran = true; }}));
    loop.settle();
    EXPECT_TRUE(ran);
    EXPECT_THAT(history.entries(), ElementsAre("1+1"));
    EXPECT_EQ(usage.boost("calc:1+1", "1+1"), 0);
}

TEST_F(PelloControllerTest, RevealShowsTheFileAndHidesThePanel) {
    controller.setPanel(&panel);
    controller.show("term");
    controller.revealSelection();
    EXPECT_FALSE(panel.isPresented());
    EXPECT_THAT(workspace.revealed, ElementsAre(path("Terminal")));
    controller.setQuery("no such thing");
    controller.revealSelection();
    controller.runSelection();
    loop.settle();
    EXPECT_THAT(workspace.revealed, SizeIs(1));
    EXPECT_THAT(workspace.openedApplications, IsEmpty());
}

TEST_F(PelloControllerTest, RecallStepsThroughTheHistoryAndBackToTheDraft) {
    for (const char* query : {"a", "b", "c"}) {
        history.record(query);
    }
    controller.setQuery("x");
    std::vector<std::string> seen;
    const auto step = [&](void (PelloController::*direction)()) {
        (controller.*direction)();
        seen.push_back(controller.query());
    };
    for (int i = 0; i < 4; ++i) {
        step(&PelloController::recallOlder);
    }
    for (int i = 0; i < 4; ++i) {
        step(&PelloController::recallNewer);
    }
    EXPECT_THAT(seen, ElementsAre("c", "b", "a", "a", "b", "c", "x", "x"));
}

TEST_F(PelloControllerTest, ObserversOfARecallSeeWhereItLedAndTypingForgetsThePlace) {
    history.record("older");
    history.record("newer");
    controller.setQuery("newer");
    std::vector<std::pair<std::string, std::optional<int>>> seen;
    const auto watching = controller.changed.connect(
        [&] { seen.emplace_back(controller.query(), controller.historyCursor()); });
    controller.recallOlder();
    controller.recallOlder();
    controller.setQuery("x");
    controller.recallNewer(); // is nowhere to go back to
    controller.recallOlder();
    controller.recallNewer();
    EXPECT_THAT(seen, ElementsAre(Pair("newer", Optional(0)), Pair("older", Optional(1)),
                                  Pair("x", std::nullopt), Pair("newer", Optional(0)),
                                  Pair("x", std::nullopt)));
}

TEST_F(PelloControllerTest, RecallFindsBackFromAHistoryThatShrank) {
    for (const char* query : {"a", "b", "c", "d"}) {
        history.record(query);
    }
    controller.setQuery("x");
    for (int i = 0; i < 4; ++i) {
        controller.recallOlder();
    }
    defaults.setElsewhere("query.history", propertyArray({"d", "c"}));
    controller.recallNewer();
    EXPECT_EQ(controller.query(), "c");
    defaults.setElsewhere("query.history", propertyArray({}));
    controller.recallNewer();
    EXPECT_EQ(controller.query(), "x");
}

TEST_F(PelloControllerTest, TogglingPresentsAfreshWithTheFirstRowSelected) {
    controller.setPanel(&panel);
    controller.toggle();
    EXPECT_TRUE(panel.isPresented());
    controller.setQuery("te");
    controller.setSelection(1);
    controller.toggle();
    EXPECT_FALSE(panel.isPresented());
    controller.toggle();
    EXPECT_EQ(controller.query(), "");
    EXPECT_EQ(controller.selection(), 0);
    EXPECT_EQ(controller.presentationToken(), 2);
}

TEST_F(PelloControllerTest, ResultsFollowTheSourcesAndTheSettings) {
    controller.setQuery("saf");
    install({"Safeguard"});
    EXPECT_THAT(titles(), ElementsAre("Safari", "Safe Mode", "Safeguard"));
    settings.maximumResults.set(1);
    EXPECT_THAT(titles(), ElementsAre("Safari"));
    const auto extra = folder.makeFolder("Extra");
    bundles.descriptions[folder.makeFolder("Extra/Saf.app")] = {.name = "Saf"};
    settings.extraDirectories.set({extra});
    loop.settle();
    EXPECT_THAT(titles(), ElementsAre("Saf"));
}

TEST_F(PelloControllerTest, NothingMovesUnderTheSelectionWhileThePanelIsOpen) {
    controller.setPanel(&panel);
    controller.show("te");
    ASSERT_THAT(titles(), ElementsAre("Text Editor", "Terminal"));
    install({"Tea"});
    EXPECT_THAT(titles(), ElementsAre("Text Editor", "Tea", "Terminal"))
        << "what Return runs stays first";
    controller.setSelection(2);
    settings.maximumResults.set(3);
    install({"Te", "Tec", "Tef", "Teg"});
    EXPECT_THAT(titles(), ElementsAre("Text Editor", "Tea", "Terminal"));
    uninstall("Terminal");
    reindex();
    EXPECT_EQ(titles()[1], "Tea");
    EXPECT_NE(titles()[2], "Terminal");
    controller.setQuery("t");
    EXPECT_THAT(found("te"), ElementsAre("Text Editor", "Te", "Tea"))
        << "the next keystroke ranks anew";
}

TEST(PelloControllerAtLaunchTest, WhatASourceHasAtFirstTakesItsOwnPlace) {
    MemoryLauncher launcher;
    NotingPanel panel;
    launcher.controller.setPanel(&panel);
    launcher.controller.show("post");
    ASSERT_THAT(launcher.titles(), IsEmpty());
    launcher.addScript("post", "#!/bin/sh");
    ASSERT_THAT(launcher.titles(), ElementsAre("Post"));
    EXPECT_EQ(launcher.controller.results().front().item->title, "Post")
        << "above the search of the web";
}

TEST_F(PelloControllerTest, WhatWasLearnedIsForgottenRowByRow) {
    controller.setPanel(&panel);
    pick("s", 1);
    pick("t");
    controller.show("s");
    ASSERT_THAT(titles(), ElementsAre("Safe Mode", "Safari"));
    controller.forgetSelection();
    EXPECT_THAT(titles(), ElementsAre("Safe Mode", "Safari")) << "nothing jumps";
    EXPECT_EQ(controller.selectionRemark(), RowRemark::forgotten);
    controller.setSelection(1);
    EXPECT_EQ(controller.selectionRemark(), std::nullopt);
    controller.forgetSelection();
    EXPECT_EQ(controller.selectionRemark(), RowRemark::nothingLearned);
    EXPECT_THAT(found("s "), ElementsAre("Safari", "Safe Mode"));
    EXPECT_EQ(controller.selectionRemark(), std::nullopt);
    EXPECT_THAT(found(""), SizeIs(1)) << "of others it still knows";
}

TEST_F(PelloControllerTest, RowsSayWhyTheyStandWhereTheyDo) {
    pick("s", 1);
    controller.setQuery("s");
    EXPECT_THAT(controller.reasons(), IsEmpty());
    controller.toggleReasons();
    ASSERT_THAT(controller.reasons(), SizeIs(controller.results().size()));
    EXPECT_THAT(controller.reasons()[0], testing::HasSubstr(" + 400 chosen last for this text = "));
    EXPECT_THAT(controller.reasons()[1], testing::StartsWith("Name matches: "));
    EXPECT_THAT(controller.reasons().back(), testing::StartsWith("Made of what is typed"));
    install({"Sad"});
    EXPECT_THAT(controller.reasons(), SizeIs(controller.results().size()));
    controller.setQuery("sa");
    EXPECT_THAT(controller.reasons(), IsEmpty());
}

TEST_F(PelloControllerTest, PruningForgetsOnlyApplicationsThatAreGone) {
    pick("saf");
    pick("text");
    usage.record("menu:File/Close", "");
    usage.record("pane:network", "");
    uninstall("Safari");
    reindex();
    EXPECT_GT(usage.boost(idOf("Safari"), ""), 0) << "it may come back";
    reindex(PelloController::Pruning::forgetMissing);
    EXPECT_EQ(usage.boost(idOf("Safari"), "saf"), 0);
    EXPECT_GT(usage.boost(idOf("Text Editor"), ""), 0);
    EXPECT_GT(usage.boost("menu:File/Close", ""), 0);
    EXPECT_GT(usage.boost("pane:network", ""), 0) << "panes were not scanned";
}

class GlyphModeTest : public PelloControllerTest {
protected:
    GlyphModeTest() {
        glyphs.prepare();
        loop.settle();
    }
};

TEST_F(PelloControllerTest, GlyphsAreFoundAsSoonAsTheyArePrepared) {
    controller.setQuery(":fire");
    EXPECT_THAT(controller.results(), IsEmpty()) << "no search of the web either";
    glyphs.prepare();
    loop.settle();
    ASSERT_FALSE(titles().empty());
    EXPECT_EQ(titles().front(), "fire");
}

TEST_F(GlyphModeTest, FindsSixtyGlyphsAtMostAndNothingElse) {
    settings.maximumResults.set(1);
    EXPECT_THAT(found(":face"), SizeIs(60));
    EXPECT_EQ(found("emoji fire engine").front(), "fire engine");
    EXPECT_EQ(found("key escape").front(), "escape key");
    EXPECT_THAT(found(":safari"), IsEmpty());
    EXPECT_EQ(found("safari"), (std::vector<std::string>{"Safari"}));
}

TEST_F(GlyphModeTest, WhatIsLearnedForOnePrefixCountsForAllAndIsPasted) {
    pick(":fire", 1);
    const std::string id = glyphs.results("fire", usage).front().item->id;
    EXPECT_NE(id, "glyph:1f525") << "the second row was picked";
    EXPECT_EQ(usage.boost(id, "fire"), 28 + UsageStore::Boost::kBinding);
    EXPECT_EQ(usage.boost(id, ":fire"), 28);
    EXPECT_EQ(found("emoji  fire"), found(":fire"));
    EXPECT_THAT(history.entries(), ElementsAre(":fire"));
    EXPECT_NE(pasteboard.text(), "");
}

TEST_F(GlyphModeTest, VariantsReplaceTheResultsUntilTheNextKeystroke) {
    controller.setQuery(":fire");
    EXPECT_FALSE(controller.offerVariants());
    const auto thumbs = found(":thumbs up");
    EXPECT_TRUE(controller.offerVariants());
    ASSERT_THAT(titles(), SizeIs(5));
    EXPECT_EQ(titles().front(), "thumbs up: light skin tone");
    reindex();
    EXPECT_THAT(titles(), SizeIs(5)) << "a scan has ended meanwhile";
    EXPECT_TRUE(controller.withdrawVariants());
    EXPECT_EQ(titles(), thumbs);
    controller.offerVariants();
    EXPECT_EQ(found(":thumbs u").front(), "thumbs up");
    EXPECT_FALSE(controller.withdrawVariants());

    controller.setQuery(":thumbs");
    controller.offerVariants();
    controller.setSelection(2);
    controller.runSelection();
    loop.settle();
    EXPECT_EQ(pasteboard.text(), "👍🏽");
    controller.show("emoji thumbs");
    EXPECT_EQ(titles().front(), "thumbs up: medium skin tone") << "learned as a glyph of its own";
}

} // namespace
} // namespace pello
