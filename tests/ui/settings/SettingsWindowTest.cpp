#include "ui/settings/SettingsWindow.h"

#include "ui/Contrast.h"
#include "ui/settings/ConfirmButton.h"
#include "ui/settings/ExtraFolders.h"
#include "ui/settings/KeyComboRecorder.h"
#include "ui/settings/SettingsFixture.h"

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QTimer>
#include <gmock/gmock.h>

#include <cmath>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::array kTabs{SettingsTab::general, SettingsTab::appearance, SettingsTab::sources,
                           SettingsTab::bangs, SettingsTab::aliases};

class SettingsWindowTest : public SettingsFixture {
protected:
    /// The labels of the rows that are to be seen, from the top.
    std::vector<std::string> shown() {
        std::vector<std::string> labels;
        for (const SettingsTab tab : kTabs) {
            for (const auto* row : partsOf<SettingRow>(window.page(tab))) {
                if (row->isVisible()) {
                    labels.push_back(row->label().toStdString());
                }
            }
        }
        return labels;
    }

    SettingRow& row(SettingsTab tab, const char* label) {
        auto* named = window.page(tab).row(label);
        EXPECT_NE(named, nullptr) << label;
        return *named;
    }

    SettingsWindow window{services()};
};

TEST_F(SettingsWindowTest, SearchShowsTheRowsOfAllPagesThatHoldEveryWord) {
    window.present(SettingsTab::bangs);
    EXPECT_THAT(shown(), ElementsAre("Your bangs"));
    window.searchField().setText("ICON size");
    EXPECT_THAT(shown(), ElementsAre("Icon size of running apps", "Icon size of the switcher"));
    window.searchField().setText("opening capitalising");
    EXPECT_THAT(shown(), ElementsAre("Use Caps Lock as Hyper"))
        << "the section's title and the description count too";
    window.searchField().setText("nothing like it");
    EXPECT_THAT(shown(), IsEmpty());
    press(window.searchField(), Qt::Key_Escape);
    EXPECT_THAT(shown(), ElementsAre("Your bangs")) << "back on the page from before";
    EXPECT_TRUE(window.isVisible());
}

TEST_F(SettingsWindowTest, ReturnInTheFieldGoesToTheFirstControlThatWasFound) {
    window.present();
    window.searchField().setText("text size");
    press(window.searchField(), Qt::Key_Return);
    EXPECT_EQ(window.focusWidget(), &row(SettingsTab::appearance, "Text size").control());
}

TEST_F(SettingsWindowTest, EveryControlHasANameForAssistiveTechnology) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
        const bool isPart = qobject_cast<QAbstractSpinBox*>(control->parentWidget()) != nullptr ||
                            control->inherits("QHeaderView") ||
                            control->inherits("QTableCornerButton") ||
                            control->inherits("QScrollBar") || control->inherits("QToolButton");
        if ((control->focusPolicy() & Qt::TabFocus) == 0 || isPart) {
            continue;
        }
        auto* interface = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(interface, nullptr);
        EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty())
            << control->metaObject()->className() << " in "
            << control->parentWidget()->metaObject()->className();
    }
}

TEST_F(SettingsWindowTest, SizeIsRememberedAndNonsenseIsNot) {
    window.present();
    window.resize(700, 500);
    window.close();
    EXPECT_EQ(SettingsWindow(services()).size(), QSize(700, 500));
    for (const char* nonsense : {"", "x", "0x0", "9x9x9", "-5x100"}) {
        defaults.set("settingsWindow.size", nonsense);
        EXPECT_EQ(SettingsWindow(services()).size().height() > 400, true) << nonsense;
    }
}

TEST_F(SettingsWindowTest, ConflictsOfTheShortcutAreSaidBesideIt) {
    auto& combo = row(SettingsTab::general, "Keyboard shortcut");
    EXPECT_FALSE(combo.control().isEnabled()) << "a modifier's tap opens the launcher";
    settings.activation.set(Activation::keyCombo);
    EXPECT_TRUE(combo.control().isEnabled());
    EXPECT_EQ(combo.notice(), "");
    settings.keyCombo.set(KeyCombo(KeyCombo::kSpaceKey, KeyCombo::kCommand));
    EXPECT_EQ(combo.notice(), "⌘Space is the system shortcut for Spotlight. Turn it off in "
                              "Keyboard Shortcuts, or pick another combination.");
    taken = KeyCombo(40, KeyCombo::kControl);
    settings.keyCombo.set(*taken);
    EXPECT_EQ(combo.notice(), "Another program has it.");
    settings.glyphCombo.set(taken);
    EXPECT_THAT(row(SettingsTab::general, "Emoji and symbols").notice().toStdString(),
                HasSubstr("comes first"));
}

TEST_F(SettingsWindowTest, RecordedShortcutsAreKeptAndCleared) {
    settings.activation.set(Activation::keyCombo);
    const auto record = [this](const char* label, quint32 code) {
        auto& recorder =
            dynamic_cast<KeyComboRecorder&>(row(SettingsTab::general, label).control());
        recorder.click();
        press(recorder, Qt::Key_A, Qt::ControlModifier, {}, code);
        return recorder.text().toStdString();
    };
    EXPECT_EQ(record("Keyboard shortcut", 0), "⌃A");
    EXPECT_EQ(settings.keyCombo(), KeyCombo(0, KeyCombo::kControl));
    EXPECT_EQ(record("Emoji and symbols", 40), "⌃K");
    EXPECT_EQ(settings.glyphCombo(), KeyCombo(40, KeyCombo::kControl));
    for (auto* button : window.findChildren<QPushButton*>()) {
        if (button->accessibleName() == "Clear the emoji and symbols shortcut") {
            button->click();
        }
    }
    EXPECT_FALSE(settings.glyphCombo());
    EXPECT_FALSE(defaults.value("glyphCombo"));
}

TEST_F(SettingsWindowTest, HyperSaysWhoseTheRemapIsAndWhenItIsMissing) {
    auto& hyper = row(SettingsTab::general, "Use Caps Lock as Hyper");
    const auto explanation = [&hyper] { return hyper.description().toStdString(); };
    EXPECT_THAT(explanation(), HasSubstr("this is on. Turning this on installs a system-wide "
                                         "keyboard remap, which Pello undoes again on quit."));
    settings.capsLockIsHyper.set(true);
    EXPECT_THAT(explanation(), HasSubstr(" Another tool had already installed this remap, so "
                                         "Pello is using it and will leave it in place."));
    settings.ownsHyperMapping.set(true);
    EXPECT_THAT(explanation(), HasSubstr(" Pello installed the system-wide remap and will undo it "
                                         "on quit."));
    EXPECT_EQ(hyper.notice(), "");
    isHyperActive = false;
    window.present();
    EXPECT_EQ(hyper.notice(), "The keyboard remap isn't in place. Toggling this off and on again "
                              "usually fixes it.");
    settings.activation.set(Activation::capsLock);
    EXPECT_THAT(explanation(), HasSubstr("Tapping Caps Lock opens Pello."));
}

TEST_F(SettingsWindowTest, ForgettingAsksFirstAndTakesTheQuestionBack) {
    auto& clear = dynamic_cast<ConfirmButton&>(row(SettingsTab::general, "History").control());
    clear.click();
    EXPECT_EQ(clear.text(), "Really Clear?");
    QFocusEvent away(QEvent::FocusOut);
    QApplication::sendEvent(&clear, &away);
    EXPECT_EQ(clear.text(), "Clear History");
    clear.click();
    EXPECT_EQ(history, 3U);
    clear.click();
    EXPECT_EQ(history, 0U);
    EXPECT_FALSE(clear.isEnabled());
    EXPECT_EQ(window.page(SettingsTab::general).row("Learned order"), nullptr)
        << "there is no service for it";
}

TEST_F(SettingsWindowTest, FoldersAreAddedOnceAndRemoved) {
    auto* folders = partsOf<ExtraFolders>(window).at(0);
    folders->add("/one");
    folders->add("/two");
    folders->add("/one");
    EXPECT_THAT(settings.extraDirectories(), ElementsAre("/one", "/two"));
    folders->removeSelected();
    EXPECT_THAT(settings.extraDirectories(), ElementsAre("/one"));
}

TEST_F(SettingsWindowTest, CountsFollowTheSourcesWhileTheyAreSeen) {
    window.present(SettingsTab::sources);
    const auto counts = [this] {
        int matching = 0;
        for (const auto* label : window.findChildren<QLabel*>()) {
            matching += label->text() == QString("%1 found").arg(found) ? 1 : 0;
        }
        return matching;
    };
    EXPECT_EQ(counts(), 7);
    found = 8;
    foundChanged.emit();
    EXPECT_EQ(counts(), 7);
}

TEST_F(SettingsWindowTest, WheelScrollsPastControlsWithoutTheFocus) {
    window.present(SettingsTab::general);
    auto* box = qobject_cast<QComboBox*>(&row(SettingsTab::general, "Open with").control());
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_EQ(settings.activation(), Activation::rightCommand);
}

/// Has the desktop change its colours while the program runs.
void become(const QPalette& desktop) {
    QTimer::singleShot(0, [&desktop] {
        QApplication::setPalette(desktop);
        QTimer::singleShot(0, [] { QApplication::quit(); }); // after windows were told
    });
    QApplication::exec();
}

TEST_F(SettingsWindowTest, ExplanationsAndProblemsReadWellInBothAppearances) {
    window.present();
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(0x3a, 0x3a, 0x42), QColor(0x26, 0x26, 0x2b));
    dark.setColor(QPalette::Base, QColor(0x30, 0x30, 0x36));
    for (const QPalette& desktop : {before, dark}) {
        become(desktop);
        EXPECT_EQ(window.palette().color(QPalette::Base), desktop.color(QPalette::Base))
            << "follows the desktop while it is open";
        const auto colour = [this](QPalette::ColorRole role) {
            return window.palette().color(role);
        };
        for (const auto ground : {QPalette::Base, QPalette::Window}) {
            for (const auto role :
                 {QPalette::Text, QPalette::PlaceholderText, QPalette::BrightText}) {
                EXPECT_GE(contrastOf(colour(role), colour(ground)), kReadable) << role;
            }
        }
        EXPECT_GE(contrastOf(colour(QPalette::HighlightedText), colour(QPalette::Highlight)),
                  kReadable);
    }
    become(before);
}

} // namespace
} // namespace pello
