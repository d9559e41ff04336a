#include "platform/qt/QtDialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;

class QtDialogsTest : public testing::Test {
protected:
    QMessageBox* ask() {
        dialogs->confirm({.title = "Run <b>?", .message = "<i>", .confirmTitle = "Run & Go"},
                         [this](Dialogs::Answer answer) { answers.push_back(answer); });
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the one before
        const auto windows = QApplication::topLevelWidgets();
        return windows.size() == 1 ? qobject_cast<QMessageBox*>(windows.first()) : nullptr;
    }

    static QAbstractButton* button(QMessageBox* box, QMessageBox::ButtonRole role) {
        for (QAbstractButton* candidate : box->buttons()) {
            if (box->buttonRole(candidate) == role) {
                return candidate;
            }
        }
        return nullptr;
    }

    std::optional<QtDialogs> dialogs{std::in_place};
    std::vector<Dialogs::Answer> answers;
};

TEST_F(QtDialogsTest, OnlyTheFirstButtonConfirms) {
    QMessageBox* box = ask();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->isVisible());
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_EQ(box->text(), "Run <b>?");
    EXPECT_EQ(button(box, QMessageBox::AcceptRole)->text(), "Run && Go");
    EXPECT_EQ(button(box, QMessageBox::RejectRole)->text(), "Cancel");
    button(box, QMessageBox::AcceptRole)->click();
    button(ask(), QMessageBox::RejectRole)->click();
    ask()->close();
    ask()->reject(); // Escape
    using enum Dialogs::Answer;
    EXPECT_THAT(answers, ElementsAre(confirmed, cancelled, cancelled, cancelled));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(QtDialogsTest, QuestionsGoWithTheOneWhoAsks) {
    ask();
    dialogs.reset();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    EXPECT_TRUE(answers.empty());
}

} // namespace
} // namespace pello
