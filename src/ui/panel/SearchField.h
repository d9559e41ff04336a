#pragma once

#include "ui/theme/PanelStyle.h"

#include <QLineEdit>

#include <string>
#include <string_view>

namespace pello {

/// The panel's text field: shows the completion greyed behind the caret, and a search symbol.
///
/// Reports its text through QLineEdit's signals; text that an input method is still composing is
/// not in it. Presses on its free parts are passed on to the panel, which is dragged by them.
class SearchField final : public QLineEdit {
public:
    /// `style` must outlive the field; call `restyle` when it changed.
    explicit SearchField(const PanelStyle& style);

    void restyle();

    /// Shows `query`, with the caret at its end, unless it is shown already.
    void setQuery(std::string_view query);
    [[nodiscard]] std::string query() const;

    /// What the text is for, in front of it, when it is not searched for; empty otherwise.
    void setPrompt(std::string_view prompt);

    /// What to show behind the typed text; empty for nothing.
    void setCompletion(std::string_view completion);

    /// Whether the text reads from right to left, so that its end is at the left.
    [[nodiscard]] bool runsRightToLeft() const { return text().isRightToLeft(); }

    [[nodiscard]] bool isCaretAtStart() const;
    [[nodiscard]] bool isCaretAtEnd() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] bool isFree(int x) const;
    [[nodiscard]] QRect textArea() const;
    [[nodiscard]] int promptWidth() const;
    [[nodiscard]] int caretX() const;
    void paintSymbol(QPainter& painter) const;
    void paintPrompt(QPainter& painter) const;
    void paintPlaceholder(QPainter& painter) const;
    void paintCompletion(QPainter& painter) const;

    const PanelStyle& style_;
    QString prompt_;
    QString completion_;
    bool isComposing_ = false;
    bool isGripped_ = false; // the press was passed on, and so is what follows it
};

} // namespace pello
