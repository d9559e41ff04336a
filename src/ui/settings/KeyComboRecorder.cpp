#include "ui/settings/KeyComboRecorder.h"

#include "platform/InputEvent.h"
#include "platform/VirtualKeys.h"

#include <QAccessible>
#include <QKeyEvent>

#include <array>
#include <utility>

namespace pello {
namespace {

using namespace Qt::StringLiterals;

struct Modifier {
    int key;
    Qt::KeyboardModifier qt;
    std::uint64_t flag;
};

constexpr std::array kModifiers{
    Modifier{Qt::Key_Shift, Qt::ShiftModifier, KeyCombo::kShift},
    Modifier{Qt::Key_Control, Qt::ControlModifier, KeyCombo::kControl},
    Modifier{Qt::Key_Alt, Qt::AltModifier, KeyCombo::kOption},
    Modifier{Qt::Key_Meta, Qt::MetaModifier, KeyCombo::kCommand},
    Modifier{Qt::Key_Super_L, Qt::MetaModifier, KeyCombo::kCommand},
    Modifier{Qt::Key_Super_R, Qt::MetaModifier, KeyCombo::kCommand},
};

std::uint64_t flagsOf(Qt::KeyboardModifiers modifiers) {
    std::uint64_t flags = 0;
    for (const Modifier& modifier : kModifiers) {
        flags |= modifiers.testFlag(modifier.qt) ? modifier.flag : 0;
    }
    return flags;
}

/// The flag of a modifier key; none for other keys.
std::uint64_t flagOfKey(int key) {
    for (const Modifier& modifier : kModifiers) {
        if (modifier.key == key) {
            return modifier.flag;
        }
    }
    return 0;
}

bool isOtherModifier(int key) {
    return key == Qt::Key_AltGr || key == Qt::Key_CapsLock || key == Qt::Key_NumLock ||
           key == Qt::Key_Hyper_L || key == Qt::Key_Hyper_R || key == Qt::Key_unknown;
}

/// Leaves the recorder alone, as it leaves every other control.
bool isLeaving(const QKeyEvent& event) {
    const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    return isTab && (flagsOf(event.modifiers()) & ~KeyCombo::kShift) == 0;
}

/// The symbols of the modifiers alone.
std::string symbols(std::uint64_t flags, const KeyboardLayout& layout) {
    std::string text = KeyCombo(KeyCombo::kSpaceKey, flags).displayString(layout);
    text.resize(text.size() - KeyCombo::keyName(KeyCombo::kSpaceKey, layout).size());
    return text;
}

} // namespace

KeyComboRecorder::KeyComboRecorder(const SettingsServices& services) : services_(services) {
    setCheckable(true);
    setAutoDefault(false);
    setMinimumWidth(fontMetrics().horizontalAdvance(u"Type a shortcut… (Esc)"_s) + 32);
    connect(this, &QPushButton::clicked, this, [this] {
        if (!isRecording_) {
            start();
        } else {
            stop();
        }
    });
    showText();
}

void KeyComboRecorder::showCombo(const std::optional<KeyCombo>& combo) {
    combo_ = combo;
    showText();
}

void KeyComboRecorder::start() {
    isRecording_ = true;
    held_ = 0;
    if (services_.suspendShortcuts) {
        suspended_ = services_.suspendShortcuts();
    }
    setFocus();
    hint({});
    showText();
}

void KeyComboRecorder::stop() {
    isRecording_ = false;
    suspended_.reset();
    hint({});
    showText();
}

void KeyComboRecorder::hint(const QString& text) const {
    if (onHint) {
        onHint(text);
    }
}

void KeyComboRecorder::showText() {
    setChecked(isRecording_);
    if (!isRecording_) {
        setText(combo_ ? QString::fromStdString(combo_->displayString(services_.layout))
                       : u"Record Shortcut"_s);
    } else if (held_ != 0) {
        setText(QString::fromStdString(symbols(held_, services_.layout)) + u'…');
    } else {
        setText(u"Type a shortcut…"_s);
    }
    if (QAccessible::isActive()) { // the text is part of what it is called
        QAccessibleEvent event(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
}

bool KeyComboRecorder::event(QEvent* event) {
    if (!isRecording_) {
        return QPushButton::event(event);
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyPress:
        if (isLeaving(static_cast<QKeyEvent&>(*event))) {
            stop();
            break;
        }
        take(static_cast<QKeyEvent&>(*event));
        return true;
    case QEvent::KeyRelease: {
        const auto& key = static_cast<QKeyEvent&>(*event);
        held_ = flagsOf(key.modifiers()) & ~flagOfKey(key.key());
        showText();
        return true;
    }
    case QEvent::FocusOut:
    case QEvent::Hide:
        stop();
        break;
    default:
        break;
    }
    return QPushButton::event(event);
}

void KeyComboRecorder::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QPushButton::keyPressEvent(event);
}

void KeyComboRecorder::take(const QKeyEvent& event) {
    const std::uint64_t flags = flagsOf(event.modifiers());
    if (event.isAutoRepeat()) {
        return;
    }
    if (event.key() == Qt::Key_Escape && flags == 0) {
        stop();
        return;
    }
    if (flagOfKey(event.key()) != 0 || isOtherModifier(event.key())) {
        held_ = flags | flagOfKey(event.key());
        showText();
        return;
    }
    const auto code = services_.virtualKey(event.nativeScanCode());
    const auto combo = KeyCombo::fromEvent({.keyCode = code, .flags = flags});
    if (code == virtualKeys::kNone) {
        hint(u"That key cannot be part of a shortcut."_s);
    } else if (!combo) {
        const auto& names = services_.modifierNames;
        hint(u"Hold %1, %2 or %3 with it, or use a function key."_s.arg(
            QString::fromStdString(names.control), QString::fromStdString(names.option),
            QString::fromStdString(names.command)));
    } else {
        stop();
        if (onRecorded) {
            onRecorded(*combo);
        }
    }
}

} // namespace pello
