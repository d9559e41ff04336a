#pragma once

#include <QPushButton>

#include <functional>

namespace pello {

/// A button for what cannot be undone: the first press asks, the second acts. Looking away takes
/// the question back.
class ConfirmButton final : public QPushButton {
public:
    ConfirmButton(const QString& text, const QString& question, std::function<void()> action);

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pressed();

    QString text_;
    QString question_;
    std::function<void()> action_;
    bool isAsking_ = false;
};

} // namespace pello
