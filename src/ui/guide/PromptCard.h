#pragma once

#include "ui/guide/KeyCaps.h"
#include "ui/guide/StateMark.h"

#include <QFrame>
#include <QLabel>

namespace pello {

/// Asks for a key to be pressed, and says whether it was seen.
class PromptCard final : public QFrame {
public:
    explicit PromptCard(QWidget* parent);

    /// Waits for `keys`.
    void ask(const QString& prompt, const QStringList& keys);
    /// Says that they were seen.
    void confirm();
    /// Says why they cannot be seen; nothing when they can.
    void setProblem(const QString& problem);

    [[nodiscard]] bool isConfirmed() const { return isConfirmed_; }
    [[nodiscard]] QString status() const { return status_->text(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showStatus();
    void say(const QString& text, QPalette::ColorRole role);

    QLabel* prompt_;
    KeyCaps* caps_;
    StateMark* mark_;
    QLabel* status_;
    QString problem_;
    bool isConfirmed_ = false;
};

} // namespace pello
