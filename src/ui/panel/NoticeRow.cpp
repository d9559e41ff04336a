#include "ui/panel/NoticeRow.h"

#include "ui/panel/Chip.h"
#include "ui/panel/MarkedText.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace pello {

namespace {

const QString kDismiss = QStringLiteral("Dismiss");
constexpr int kTextFlags = Qt::AlignVCenter | Qt::AlignLeading | Qt::TextWordWrap;
constexpr int kMostLines = 4;

} // namespace

NoticeRow::NoticeRow(const PanelStyle& style) : style_(style) {
    hide();
}

void NoticeRow::setNotice(const std::optional<std::string>& notice) {
    const QString text = notice ? lineOf(*notice) : QString();
    if (text != text_) {
        text_ = text;
        setAccessibleName(text);
        setVisible(!text.isEmpty());
        update();
    }
}

int NoticeRow::textWidth(int width) const {
    const auto& metrics = style_.metrics;
    return width - 2 * metrics.rowMargin - 3 * metrics.rowPadding - chipWidth(style_, kDismiss);
}

int NoticeRow::fullHeight(int width) const {
    if (text_.isEmpty()) {
        return 0;
    }
    const auto& metrics = style_.metrics;
    const QFontMetrics font(style_.subtitleFont);
    const int lines =
        font.boundingRect(QRect(0, 0, textWidth(width), 0), kTextFlags, text_).height();
    return std::min(lines, kMostLines * font.lineSpacing()) + 2 * metrics.rowPadding +
           metrics.listPadding;
}

void NoticeRow::paintEvent(QPaintEvent* /*event*/) {
    const auto& metrics = style_.metrics;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect row =
        rect().adjusted(metrics.rowMargin, 0, -metrics.rowMargin, -metrics.listPadding);
    painter.setPen(Qt::NoPen);
    painter.setBrush(style_.theme.failureGround);
    painter.drawRoundedRect(row, metrics.rowRadius, metrics.rowRadius);

    const QRect inner = row.adjusted(metrics.rowPadding, 0, -metrics.rowPadding, 0);
    const int chip = chipWidth(style_, kDismiss);
    paintChip(painter, QRect(inner.right() - chip + 1, inner.y(), chip, inner.height()), style_,
              kDismiss);
    painter.setFont(style_.subtitleFont);
    painter.setPen(style_.theme.failure);
    painter.drawText(QRect(inner.x(), inner.y(), textWidth(width()), inner.height()), kTextFlags,
                     text_);
}

void NoticeRow::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void NoticeRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) &&
        onDismiss) {
        onDismiss();
    }
}

} // namespace pello
