#include "core/controller/PelloController.h"

#include "support/MemoryLauncher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

/// A panel that notes what it is asked to do.
class NotingPanel final : public LauncherPanel {
public:
    void present() override { isShown_ = true; }
    void dismiss() override { isShown_ = false; }
    [[nodiscard]] bool isPresented() const override { return isShown_; }

private:
    bool isShown_ = false;
};

class PelloControllerTest : public testing::Test, protected MemoryLauncher {
protected:
    PelloControllerTest() { install({"Safari", "Safe Mode", "Terminal", "Text Editor"}); }

    NotingPanel panel;
};

TEST_F(PelloControllerTest, EachEditReplacesTheResultsBeforeItReturns) {
    EXPECT_THAT(found("saf"), ElementsAre("Safari", "Safe Mode"));
    EXPECT_THAT(found("safar"), ElementsAre("Safari"));
    EXPECT_THAT(found("nothing at all"), IsEmpty());
    EXPECT_EQ(controller.selection(), 0);
}

TEST_F(PelloControllerTest, ObserversHearOncePerChangeAndNotOfTheSameText) {
    int announcements = 0;
    const auto counting = controller.changed.connect([&] { ++announcements; });
    controller.setQuery("saf");
    controller.setQuery("saf");
    EXPECT_EQ(announcements, 1);
    controller.setSelection(1);
    controller.setSelection(9);
    EXPECT_EQ(announcements, 2) << "there is no row beyond the second";
    controller.refresh();
    EXPECT_EQ(announcements, 2) << "nothing changed";
}

TEST_F(PelloControllerTest, NewResultsClampTheSelectionAndKeepItOtherwise) {
    controller.setQuery("t");
    ASSERT_THAT(titles(), SizeIs(2));
    controller.setSelection(1);
    controller.setQuery("te");
    EXPECT_EQ(controller.selection(), 1);
    controller.setQuery("term");
    EXPECT_EQ(controller.selection(), 0);
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
    controller.runSelection();
    EXPECT_FALSE(panel.isPresented());
    EXPECT_THAT(history.entries(), ElementsAre(" Saf"));
    EXPECT_THAT(workspace.openedApplications, IsEmpty()) << "not before the next turn of the loop";
    loop.settle();
    EXPECT_THAT(workspace.openedApplications, ElementsAre(path("Safari")));
    EXPECT_DOUBLE_EQ(usage.boost(idOf("Safari"), "saf"), 28 + 400);
}

TEST_F(PelloControllerTest, WhatWasPickedComesFirstTheNextTime) {
    EXPECT_THAT(found("s"), ElementsAre("Safari", "Safe Mode"));
    pick("s", 1);
    EXPECT_THAT(found("s"), ElementsAre("Safe Mode", "Safari"));
    EXPECT_THAT(found("sa"), ElementsAre("Safe Mode", "Safari")) << "used is used";
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

TEST_F(PelloControllerTest, TypingForgetsThePlaceInTheHistory) {
    history.record("older");
    history.record("newer");
    controller.recallOlder();
    controller.recallOlder();
    controller.setQuery("typed");
    controller.recallNewer();
    EXPECT_EQ(controller.query(), "typed");
    controller.recallOlder();
    EXPECT_EQ(controller.query(), "newer");
    controller.recallNewer();
    EXPECT_EQ(controller.query(), "typed");
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

} // namespace
} // namespace pello
