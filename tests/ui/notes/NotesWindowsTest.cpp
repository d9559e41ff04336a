#include "platform/memory/MemoryFeedReader.h"
#include "platform/memory/MemoryMainLoop.h"
#include "ui/notes/NotesWindow.h"
#include "ui/notes/UpdateDialog.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class NotesWindowsTest : public testing::Test {
protected:
    static constexpr const char* kFeed = "https://example.org/feed";

    NotesServices services(const char* installed) {
        return {.reader = reader,
                .loop = loop,
                .feed = kFeed,
                .installed = ReleaseVersion::from(installed).value(),
                .openAddress = [this](const std::string& address) { opened.push_back(address); }};
    }

    /// A feed with these versions, each with `notes`.
    void publish(const std::vector<std::string>& versions, const std::string& text = "<p>x") {
        std::string items;
        for (const std::string& version : versions) {
            items += "<item><version>" + version + "</version><pubDate>1 Feb 2026</pubDate>" +
                     "<link>https://example.org/get</link><description><![CDATA[" + text +
                     "]]></description></item>";
        }
        reader.documents[kFeed] = "<rss><channel>" + items + "</channel></rss>";
    }

    NotesWindow& openNotes(const char* installed) {
        notes = std::make_unique<NotesWindow>(services(installed));
        notes->setAttribute(Qt::WA_DeleteOnClose, false);
        notes->present();
        loop.settle();
        return *notes;
    }

    UpdateDialog& openCheck(const char* installed) {
        check = std::make_unique<UpdateDialog>(services(installed),
                                               [this] { opened.emplace_back("notes"); });
        check->setAttribute(Qt::WA_DeleteOnClose, false);
        check->present();
        loop.settle();
        return *check;
    }

    /// The texts that are to be seen in `window`, from the labels and the buttons.
    static std::vector<std::string> texts(const QWidget& window) {
        std::vector<std::string> texts;
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            const QString text = widget->property("text").toString();
            if (widget->isVisibleTo(&window) && !text.isEmpty()) {
                texts.push_back(text.toStdString());
            }
        }
        return texts;
    }

    static std::string written(const NotesWindow& window) {
        return window.findChild<NotesView*>()->toPlainText().toStdString();
    }

    static void press(QWidget& window, const char* button) {
        for (QPushButton* one : window.findChildren<QPushButton*>()) {
            if (one->text() == QString::fromUtf8(button) && one->isVisibleTo(&window)) {
                one->click();
                return;
            }
        }
        ADD_FAILURE() << "no button " << button;
    }

    static void pressKey(QWidget& widget, int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    MemoryMainLoop loop{Date{0}};
    MemoryFeedReader reader{loop};
    std::vector<std::string> opened;
    std::unique_ptr<NotesWindow> notes;
    std::unique_ptr<UpdateDialog> check;
};

TEST_F(NotesWindowsTest, TheInstalledVersionStandsAmongTheOthers) {
    publish({"1.9", "1.10", "2.0"});
    const std::string listed = written(openNotes("1.10"));
    EXPECT_LT(listed.find("2.0"), listed.find("1.10"));
    EXPECT_THAT(listed, testing::ContainsRegex("2\\.0 +New"));
    EXPECT_THAT(listed, testing::ContainsRegex("1\\.10 +Installed"));
    EXPECT_THAT(listed, testing::ContainsRegex("1\\.9\n"));
    EXPECT_THAT(texts(*notes), testing::Contains("Pello 2.0 is available. You have Pello 1.10."));
    press(*notes, "Download");
    EXPECT_THAT(opened, ElementsAre("https://example.org/get"));

    EXPECT_THAT(
        written(openNotes("1.9.5")),
        testing::ContainsRegex("Pello 1\\.10(.|\n)*You have Pello 1\\.9\\.5(.|\n)*Pello 1\\.9\n"));
}

TEST_F(NotesWindowsTest, WhatIsWrongIsSaidAndTriedAgain) {
    openNotes("1.0");
    EXPECT_THAT(texts(*notes), testing::Contains("The release notes cannot be reached"));
    reader.documents[kFeed] = "<rss><channel>";
    press(*notes, "Try Again");
    EXPECT_THAT(texts(*notes), testing::Contains("Reading the release notes…"));
    loop.settle();
    EXPECT_THAT(texts(*notes), testing::Contains("The release notes are damaged"));
    publish({"1.0"});
    press(*notes, "Try Again");
    loop.settle();
    EXPECT_THAT(written(*notes), HasSubstr("Installed"));
    notes->present();
    EXPECT_EQ(reader.readCount, 3) << "what is shown already is not read again";
}

TEST_F(NotesWindowsTest, NotesReachNothingButWhatIsClicked) {
    publish({"1.0"},
            "<a href='https://example.org/a?b=1&amp;c'>x</a><img src='file:///etc/passwd'>");
    auto* view = openNotes("1.0").findChild<NotesView*>();
    QString html = view->toHtml();
    EXPECT_FALSE(html.contains("passwd"));
    EXPECT_TRUE(html.contains("https://example.org/a?b=1&amp;c"));
    Q_EMIT view->anchorClicked(QUrl("https://example.org/a?b=1&c"));
    Q_EMIT view->anchorClicked(QUrl("file:///etc/passwd"));
    Q_EMIT view->anchorClicked(QUrl("javascript:alert(1)"));
    EXPECT_THAT(opened, ElementsAre("https://example.org/a?b=1&c"));
}

TEST_F(NotesWindowsTest, TheyAreReadAndLeftByKeys) {
    publish({"1.0", "0.9", "0.8"}, "<p>x</p><p>x</p><p>x</p><p>x</p><p>x</p><p>x</p><p>x</p>");
    auto* view = openNotes("1.0").findChild<NotesView*>();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(view)->text(QAccessible::Name).toStdString(),
              "Release notes");
    QApplication::processEvents();
    pressKey(*view, Qt::Key_End);
    EXPECT_EQ(view->verticalScrollBar()->value(), view->verticalScrollBar()->maximum());
    EXPECT_GT(view->verticalScrollBar()->value(), 0);
    pressKey(*view, Qt::Key_Home);
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
    pressKey(*view, Qt::Key_Escape);
    EXPECT_FALSE(notes->isVisible());
}

TEST_F(NotesWindowsTest, ACheckSaysWhatItFoundInItsOneDialog) {
    publish({"1.0", "2.0"});
    openCheck("1.0");
    EXPECT_THAT(texts(*check), testing::Contains("Pello 2.0 is available"));
    EXPECT_THAT(texts(*check), testing::Contains(HasSubstr("2026")));
    press(*check, "Download");
    EXPECT_FALSE(check->isVisible());
    check->present();
    EXPECT_THAT(texts(*check), testing::Contains("Checking for updates…"));
    loop.settle();
    press(*check, "What’s New");
    EXPECT_THAT(opened, ElementsAre("https://example.org/get", "notes"));

    openCheck("2.0");
    EXPECT_THAT(texts(*check), testing::Contains("Pello is up to date"));
    EXPECT_THAT(texts(*check), testing::Not(testing::Contains("Download")));
    reader.documents.clear();
    openCheck("2.0");
    EXPECT_THAT(texts(*check), testing::Contains("The release notes cannot be reached"));
    EXPECT_THAT(texts(*check), testing::Not(testing::Contains("What’s New")));
}

TEST_F(NotesWindowsTest, ACheckThatIsCancelledIsOver) {
    publish({"2.0"});
    check = std::make_unique<UpdateDialog>(services("1.0"), [] {});
    check->setAttribute(Qt::WA_DeleteOnClose, false);
    check->present();
    check.reset();
    loop.settle();
    EXPECT_THAT(opened, IsEmpty());
}

} // namespace
} // namespace pello
