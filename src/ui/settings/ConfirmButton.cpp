#include "ui/settings/ConfirmButton.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace pello {

ConfirmButton::ConfirmButton(const QString& text, const QString& question,
                             std::function<void()> action)
    : QPushButton(question), text_(text), question_(question), action_(std::move(action)) {
    const int widest = sizeHint().width();
    setText(text);
    setMinimumWidth(std::max(widest, sizeHint().width())); // the question moves nothing
    connect(this, &QPushButton::clicked, this, [this] { pressed(); });
}

void ConfirmButton::focusOutEvent(QFocusEvent* event) {
    isAsking_ = false;
    setText(text_);
    QPushButton::focusOutEvent(event);
}

void ConfirmButton::keyPressEvent(QKeyEvent* event) {
    if (isAsking_ && event->key() == Qt::Key_Escape) {
        isAsking_ = false;
        setText(text_);
        return;
    }
    QPushButton::keyPressEvent(event);
}

void ConfirmButton::pressed() {
    isAsking_ = !isAsking_;
    setText(isAsking_ ? question_ : text_);
    if (!isAsking_) {
        action_();
    }
}

} // namespace pello
