#include "ui/panel/SearchField.h"

#include "ui/panel/Chip.h"
#include "ui/panel/MarkedText.h"

#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>

#include <algorithm>
#include <utility>

namespace pello {

namespace {

const QString kHint = QStringLiteral("⇥ complete");

/// Leaves the caret to the field, which paints it in its own colour and never lets it blink: a
/// blinking caret hides at times where the next letter goes.
class FieldStyle final : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        return metric == PM_TextCursorWidth ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

/// In UTF-16 units; the toolkit's own limit cuts what is pasted without a word. More than the
/// system takes as an argument.
constexpr int kLongestText = 1'000'000;

std::string toUtf8(const QString& text) {
    return text.toUtf8().toStdString();
}

} // namespace

SearchField::SearchField(const PanelStyle& style) : style_(style) {
    auto* ownStyle = new FieldStyle;
    ownStyle->setParent(this);
    setStyle(ownStyle);
    setFrame(false);
    setMaxLength(kLongestText);
    setAccessibleName(QStringLiteral("Search"));
    setAccessibleDescription(QStringLiteral("Search or type a command"));
    restyle();
}

void SearchField::restyle() {
    const auto& metrics = style_.metrics;
    setFont(style_.fieldFont);
    const int beforeText =
        metrics.headerPadding + metrics.searchSymbol + metrics.headerGap + promptWidth() - 2;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    setTextMargins(isMirrored ? metrics.headerPadding : beforeText, 0,
                   isMirrored ? beforeText : metrics.headerPadding, 0);
    QPalette colors = palette();
    colors.setColor(QPalette::Text, style_.theme.text);
    colors.setColor(QPalette::Base, Qt::transparent);
    colors.setColor(QPalette::Highlight, style_.theme.selection);
    colors.setColor(QPalette::HighlightedText, style_.theme.text);
    setPalette(colors);
}

void SearchField::setQuery(std::string_view query) {
    if (query != toUtf8(text())) {
        setText(QString::fromUtf8(query.data(), static_cast<qsizetype>(query.size())));
    }
}

std::string SearchField::query() const {
    return toUtf8(text());
}

void SearchField::setPrompt(std::string_view prompt) {
    const QString shown = prompt.empty() ? QString() : lineOf(prompt) + QLatin1Char(':');
    if (shown != prompt_) {
        prompt_ = shown;
        setAccessibleName(prompt_.isEmpty() ? QStringLiteral("Search") : prompt_);
        restyle();
        update();
    }
}

/// The room that the prompt takes before the text.
int SearchField::promptWidth() const {
    const QFontMetrics font(style_.fieldFont);
    return prompt_.isEmpty()
               ? 0
               : std::min(font.horizontalAdvance(prompt_) + font.horizontalAdvance(' '),
                          width() / 2);
}

void SearchField::setCompletion(std::string_view completion) {
    const QString shown = lineOf(completion);
    if (shown != completion_) {
        completion_ = shown;
        update();
    }
}

bool SearchField::isCaretAtStart() const {
    return cursorPosition() == 0 && !hasSelectedText();
}

bool SearchField::isCaretAtEnd() const {
    return cursorPosition() == text().size() && !hasSelectedText();
}

void SearchField::inputMethodEvent(QInputMethodEvent* event) {
    isComposing_ = !event->preeditString().isEmpty();
    QLineEdit::inputMethodEvent(event);
    update();
}

/// Whether there is no text at `x`, nor near it.
bool SearchField::isFree(int x) const {
    const QRect area = textArea();
    const int reach = fontMetrics().horizontalAdvance(text()) + style_.metrics.headerPadding;
    const bool isBesideText =
        runsRightToLeft() ? x < area.right() - reach : x > area.left() + reach;
    return isBesideText || x < area.left() || x > area.right();
}

void SearchField::mousePressEvent(QMouseEvent* event) {
    isGripped_ = event->button() == Qt::LeftButton && isFree(event->position().toPoint().x());
    if (isGripped_) {
        end(false);
        event->ignore();
        return;
    }
    QLineEdit::mousePressEvent(event);
}

void SearchField::mouseMoveEvent(QMouseEvent* event) {
    if (isGripped_) {
        event->ignore();
        return;
    }
    QLineEdit::mouseMoveEvent(event);
}

void SearchField::mouseReleaseEvent(QMouseEvent* event) {
    if (std::exchange(isGripped_, false)) {
        event->ignore();
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

QRect SearchField::textArea() const {
    return contentsRect().marginsRemoved(textMargins()).adjusted(2, 0, -2, 0);
}

void SearchField::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintSymbol(painter);
    paintPrompt(painter);
    if (text().isEmpty() && !isComposing_) {
        paintPlaceholder(painter);
    }
    if (!completion_.isEmpty() && isCaretAtEnd() && !isComposing_) {
        paintCompletion(painter);
    }
    if (hasFocus()) {
        const int height = fontMetrics().height();
        painter.fillRect(caretX(), (this->height() - height) / 2, style_.metrics.caretWidth, height,
                         style_.theme.accent);
    }
}

/// Where the caret stands: QLineEdit's rectangle has room on both sides of it.
int SearchField::caretX() const {
    return cursorRect().center().x() + 1;
}

void SearchField::paintSymbol(QPainter& painter) const {
    const auto& metrics = style_.metrics;
    const double unit = metrics.searchSymbol / 24.0;
    const int x = metrics.headerPadding;
    painter.save();
    painter.translate(layoutDirection() == Qt::RightToLeft ? width() - x - metrics.searchSymbol : x,
                      (height() - metrics.searchSymbol) / 2.0);
    painter.scale(unit, unit);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(style_.theme.dim, 2.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(QPointF(11, 11), 7, 7);
    painter.drawLine(QPointF(20, 20), QPointF(16, 16));
    painter.restore();
}

void SearchField::paintPrompt(QPainter& painter) const {
    const QRect texts = textArea();
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int start = isMirrored ? texts.right() : texts.left() - promptWidth();
    painter.setFont(font());
    painter.setPen(style_.theme.dim);
    painter.drawText(QRect(start, 0, promptWidth(), height()),
                     Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     fontMetrics().elidedText(prompt_, Qt::ElideMiddle, promptWidth()));
}

void SearchField::paintPlaceholder(QPainter& painter) const {
    painter.setFont(font());
    painter.setPen(style_.theme.dim);
    const QRect area = textArea().adjusted(style_.metrics.caretWidth * 3, 0, 0, 0);
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     prompt_.isEmpty() ? QStringLiteral("Search or type a command…")
                                       : QStringLiteral("…"));
}

void SearchField::paintCompletion(QPainter& painter) const {
    const QFontMetrics font = fontMetrics();
    const int advance = font.horizontalAdvance(completion_);
    const int start = runsRightToLeft() ? caretX() - advance : caretX() + style_.metrics.caretWidth;
    painter.setFont(this->font());
    painter.setPen(style_.theme.dim);
    painter.setClipRect(textArea());
    painter.drawText(start, cursorRect().y() + font.ascent(), completion_);

    const int hint = chipWidth(style_, kHint);
    const int end = textArea().right();
    if (!runsRightToLeft() && start + advance + style_.metrics.headerGap + hint <= end) {
        paintChip(painter, QRect(end - hint, 0, hint, height()), style_, kHint);
    }
}

} // namespace pello
