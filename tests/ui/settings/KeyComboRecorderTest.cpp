#include "ui/settings/KeyComboRecorder.h"

#include "platform/VirtualKeys.h"
#include "ui/settings/SettingsFixture.h"

namespace pello {
namespace {

constexpr quint32 kKKey = 40;
constexpr quint32 kF5Key = 96;

class KeyComboRecorderTest : public SettingsFixture {
protected:
    KeyComboRecorderTest() {
        recorder.showCombo(KeyCombo(KeyCombo::kSpaceKey, KeyCombo::kOption));
        recorder.onRecorded = [this](const KeyCombo& combo) { recorded = combo; };
        recorder.onHint = [this](const QString& text) { hint = text; };
    }

    SettingsServices ports = services();
    KeyComboRecorder recorder{ports};
    std::optional<KeyCombo> recorded;
    QString hint;
};

TEST_F(KeyComboRecorderTest, TakesTheNextShortcutAndLetsGoOfTheKeyboard) {
    EXPECT_EQ(recorder.text(), "⌥Space");
    recorder.click();
    EXPECT_TRUE(recorder.isRecording());
    EXPECT_EQ(suspended, 1);
    press(recorder, Qt::Key_K, Qt::ControlModifier | Qt::MetaModifier, {}, kKKey);
    EXPECT_EQ(recorded, KeyCombo(kKKey, KeyCombo::kControl | KeyCombo::kCommand));
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_EQ(suspended, 0);
}

TEST_F(KeyComboRecorderTest, ReturnBeginsAndEscapeTabAndFocusElsewhereEndIt) {
    const auto begin = [this] {
        press(recorder, Qt::Key_Return);
        ASSERT_TRUE(recorder.isRecording());
    };
    begin();
    press(recorder, Qt::Key_Escape, Qt::NoModifier, {}, 53);
    EXPECT_FALSE(recorder.isRecording());
    begin();
    press(recorder, Qt::Key_Tab, Qt::NoModifier, {}, 48);
    EXPECT_FALSE(recorder.isRecording());
    begin();
    QFocusEvent away(QEvent::FocusOut);
    QApplication::sendEvent(&recorder, &away);
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_FALSE(recorded);
    EXPECT_EQ(suspended, 0);
    EXPECT_EQ(recorder.text(), "⌥Space");
}

TEST_F(KeyComboRecorderTest, LonelyLettersAreRefusedAndFunctionKeysAreNot) {
    recorder.click();
    press(recorder, Qt::Key_K, Qt::ShiftModifier, "K", kKKey);
    EXPECT_EQ(hint, "Hold Control, Option or Command with it, or use a function key.");
    EXPECT_TRUE(recorder.isRecording());
    press(recorder, Qt::Key_LaunchMail, Qt::ControlModifier, {}, virtualKeys::kNone);
    EXPECT_EQ(hint, "That key cannot be part of a shortcut.");
    press(recorder, Qt::Key_F5, Qt::NoModifier, {}, kF5Key);
    EXPECT_EQ(recorded, KeyCombo(kF5Key, 0));
    EXPECT_EQ(hint, "");
}

TEST_F(KeyComboRecorderTest, ShowsTheModifiersThatAreHeld) {
    recorder.click();
    QKeyEvent control(QEvent::KeyPress, Qt::Key_Control, Qt::NoModifier, 37, 0, 0);
    QApplication::sendEvent(&recorder, &control);
    QKeyEvent shift(QEvent::KeyPress, Qt::Key_Shift, Qt::ControlModifier, 50, 0, 0);
    QApplication::sendEvent(&recorder, &shift);
    EXPECT_EQ(recorder.text(), "⌃⇧…");
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier | Qt::ShiftModifier,
                      37, 0, 0);
    QApplication::sendEvent(&recorder, &release);
    EXPECT_EQ(recorder.text(), "⇧…");
}

TEST_F(KeyComboRecorderTest, KeepsTheWindowsOwnShortcutsFromActingWhileItRecords) {
    QKeyEvent before(QEvent::ShortcutOverride, Qt::Key_W, Qt::ControlModifier);
    before.ignore();
    QApplication::sendEvent(&recorder, &before);
    EXPECT_FALSE(before.isAccepted());
    recorder.click();
    QKeyEvent during(QEvent::ShortcutOverride, Qt::Key_W, Qt::ControlModifier);
    during.ignore();
    QApplication::sendEvent(&recorder, &during);
    EXPECT_TRUE(during.isAccepted());
}

} // namespace
} // namespace pello
