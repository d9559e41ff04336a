#include "ui/PanelFixture.h"
#include "ui/tray/FailureDialog.h"

#include <QInputMethodEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <gmock/gmock.h>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PanelKeysTest : public PanelFixture {
protected:
    PanelKeysTest() { controller.show(); }
};

TEST_F(PanelKeysTest, ArrowsAndTheirLettersStepThroughTheRowsAndStopAtTheLast) {
    launcher.install({"Oolong 1", "Oolong 2"});
    type("oolong");
    ASSERT_THAT(rows(), ElementsAre("[Oolong 1]", "Oolong 2"));
    press(Qt::Key_Down);
    EXPECT_THAT(rows(), ElementsAre("Oolong 1", "[Oolong 2]"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(controller.selection(), 2) << "the web search";
    press(Qt::Key_Up);
    press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(controller.selection(), 0);
    press(Qt::Key_N, Qt::ControlModifier);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    launcher.loop.settle();
    EXPECT_THAT(launcher.opened(), ElementsAre("Oolong 2"));
}

TEST_F(PanelKeysTest, PageKeysAndTheKeysForBothEndsJump) {
    launcher.install({"Alpha 1", "Alpha 2", "Alpha 3", "Alpha 4", "Alpha 5", "Alpha 6", "Alpha 7"});
    type("alpha");
    ASSERT_THAT(rows(), SizeIs(7));
    press(Qt::Key_End);
    EXPECT_EQ(controller.selection(), 7);
    press(Qt::Key_Home);
    EXPECT_EQ(controller.selection(), 7) << "the caret was not at the start";
    press(Qt::Key_Home);
    EXPECT_EQ(controller.selection(), 0);
    press(Qt::Key_PageDown);
    EXPECT_GT(controller.selection(), 1);
    press(Qt::Key_PageUp);
    EXPECT_EQ(controller.selection(), 0);
}

TEST_F(PanelKeysTest, ControlCCopiesTheSelectedTextOrElseTheAnswer) {
    launcher.quickActions.prepare({.locale = "en_US"});
    launcher.loop.settle();
    type("6*7");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(launcher.pasteboard.text(), "") << "the field copied its own text";
    press(Qt::Key_End);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(launcher.pasteboard.text(), "42");
    EXPECT_TRUE(panel.isPresented());
}

TEST_F(PanelKeysTest, FailuresStandBelowTheResultsAndDeleteDismissesThem) {
    failures.record({.name = "Backup", .fileName = "backup", .status = 2, .detail = "disk full"});
    failures.record({.name = "Sync", .fileName = "sync", .status = 1, .detail = "offline"});
    type("safar");
    press(Qt::Key_Down);
    EXPECT_EQ(panel.failures().selection(), std::nullopt) << "the web search";
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(panel.failures().selection(), 1) << "the last";
    EXPECT_THAT(rows(), ElementsAre("Safari")) << "none of the results is marked";
    press(Qt::Key_Delete);
    ASSERT_EQ(failures.failures().size(), 1U);
    EXPECT_EQ(failures.failures()[0].name, "Sync");
    EXPECT_EQ(panel.failures().selection(), 0) << "what is next can be dismissed too";
    press(Qt::Key_Tab);
    press(Qt::Key_Up);
    EXPECT_EQ(panel.failures().selection(), std::nullopt);
    EXPECT_EQ(controller.selection(), 1);
    press(Qt::Key_Down);
    type("i");
    EXPECT_EQ(panel.failures().selection(), std::nullopt) << "who types is about the results";
    EXPECT_EQ(panel.list().currentIndex().row(), 1);
    EXPECT_EQ(failures.failures().size(), 1U);
    press(Qt::Key_Down);
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_THAT(launcher.workspace.revealed, ElementsAre(launcher.folder.path() / "Scripts/sync"));
}

TEST_F(PanelKeysTest, AFailureOpensWithReturnToBeReadWhole) {
    failures.record({.name = "Backup", .fileName = "backup", .status = 2, .detail = "a\nb"});
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_FALSE(panel.isPresented());
    const auto windows = QApplication::topLevelWidgets();
    const auto* dialog = [&]() -> FailureDialog* {
        for (QWidget* window : windows) {
            if (auto* found = dynamic_cast<FailureDialog*>(window)) {
                return found;
            }
        }
        return nullptr;
    }();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->findChild<QPlainTextEdit*>()->toPlainText(), "a\nb");
    const auto buttons = dialog->findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 3);
    buttons[1]->click();
    EXPECT_THAT(launcher.workspace.revealed,
                ElementsAre(launcher.folder.path() / "Scripts/backup"));
    buttons[2]->click();
    EXPECT_THAT(failures.failures(), IsEmpty());
}

TEST_F(PanelKeysTest, EscapeAndBackspaceLeaveThePromptForAnArgument) {
    launcher.addScript("post", "# pello.argument: required\n");
    for (const auto leave : {Qt::Key_Escape, Qt::Key_Backspace}) {
        type("post");
        press(Qt::Key_Return);
        launcher.loop.settle();
        ASSERT_TRUE(controller.argumentPrompt());
        EXPECT_EQ(panel.field().accessibleName().toStdString(), "Post:");
        press(leave);
        EXPECT_FALSE(controller.argumentPrompt());
        EXPECT_TRUE(panel.isPresented());
    }
}

TEST_F(PanelKeysTest, TabAndTheRightArrowAtTheEndTakeTheCompletion) {
    type("saf");
    press(Qt::Key_Tab);
    EXPECT_EQ(text(), "safari");
    EXPECT_EQ(panel.focusWidget(), &panel.field()) << "Tab never leaves the field";

    controller.setQuery("saf");
    press(Qt::Key_Left);
    EXPECT_EQ(text(), "saf");
    press(Qt::Key_Right);
    EXPECT_EQ(text(), "saf") << "the caret was not at the end";
    press(Qt::Key_Right);
    EXPECT_EQ(text(), "safari");
}

TEST_F(PanelKeysTest, UpOnTheFirstRowRecallsAndDownGoesBack) {
    launcher.pick("term");
    launcher.pick("text");
    controller.show();
    type("saf");
    press(Qt::Key_Up);
    EXPECT_EQ(text(), "text");
    press(Qt::Key_Up);
    EXPECT_EQ(text(), "term");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(text(), "saf");
    EXPECT_THAT(rows(), ElementsAre("[Safari]", "Safe Mode"));
    press(Qt::Key_Down);
    EXPECT_THAT(rows(), ElementsAre("Safari", "[Safe Mode]"));
}

TEST_F(PanelKeysTest, AltArrowsRecallFromAnyRow) {
    launcher.pick("term");
    controller.show();
    type("saf");
    press(Qt::Key_Down);
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(text(), "term");
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(text(), "saf");
}

TEST_F(PanelKeysTest, ControlAndADigitRunThatRow) {
    type("saf");
    press(Qt::Key_9, Qt::ControlModifier);
    launcher.loop.settle();
    EXPECT_THAT(launcher.opened(), IsEmpty());
    press(Qt::Key_2, Qt::ControlModifier);
    launcher.loop.settle();
    EXPECT_THAT(launcher.opened(), ElementsAre("Safe Mode"));
}

TEST_F(PanelKeysTest, TextBeingComposedIsNotSearched) {
    type("sa");
    QInputMethodEvent composing("f", {});
    QApplication::sendEvent(&panel.field(), &composing);
    EXPECT_EQ(controller.query(), "sa");
    QInputMethodEvent committing;
    committing.setCommitString("f");
    QApplication::sendEvent(&panel.field(), &committing);
    EXPECT_EQ(controller.query(), "saf");
}

} // namespace
} // namespace pello
