#include "ui/panel/FailureRows.h"

#include "base/Text.h"
#include "ui/panel/Chip.h"
#include "ui/panel/MarkedText.h"
#include "ui/panel/RowAnnouncement.h"
#include "ui/panel/TextLine.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace pello {
namespace {

const QString kDismiss = QStringLiteral("Dismiss");
constexpr QColor kWarning(0xd0, 0x38, 0x30);

std::string firstLine(const ScriptFailure& failure) {
    const auto lines = text::lines(failure.detail);
    return lines.empty() ? "" : std::string(lines.front());
}

std::string title(const ScriptFailure& failure) {
    return failure.name + " failed";
}

} // namespace

FailureRows::FailureRows(const PanelStyle& style) : style_(style) {
    hide();
}

void FailureRows::setFailures(const std::vector<ScriptFailure>& failures) {
    if (failures == failures_) {
        return;
    }
    const ScriptFailure* before = selected();
    const auto id = before != nullptr ? std::optional(before->id) : std::nullopt;
    failures_ = failures;
    const auto found = std::ranges::find_if(
        failures_, [&](const ScriptFailure& failure) { return failure.id == id; });
    if (found != failures_.end()) {
        selection_ = static_cast<int>(found - failures_.begin());
    } else if (selection_) {
        const int last = count() - 1;
        selection_ = last >= 0 ? std::optional(std::min(*selection_, last)) : std::nullopt;
    }
    setAccessibleName(count() == 1 ? QStringLiteral("1 failure")
                                   : QStringLiteral("%1 failures").arg(count()));
    setVisible(!failures_.empty());
    update();
}

int FailureRows::fullHeight() const {
    return failures_.empty() ? 0
                             : count() * style_.metrics.rowPitch + 2 * style_.metrics.listPadding;
}

void FailureRows::select(std::optional<int> row) {
    const bool exists = row && *row >= 0 && *row < count();
    const auto wanted = exists ? row : std::nullopt;
    if (wanted != selection_) {
        selection_ = wanted;
        update();
        announceRow(*this, selection_.value_or(-1));
        if (onSelect) {
            onSelect();
        }
    }
}

bool FailureRows::openSelected() {
    return tell(onOpen);
}

bool FailureRows::dismissSelected() {
    return tell(onDismiss);
}

bool FailureRows::revealSelected() {
    return tell(onReveal);
}

bool FailureRows::tell(const std::function<void(const ScriptFailure&)>& action) {
    if (selected() == nullptr || !action) {
        return false;
    }
    action(ScriptFailure(*selected())); // a copy: the action may change the rows
    return true;
}

const ScriptFailure* FailureRows::selected() const {
    return selection_ ? &failures_[static_cast<std::size_t>(*selection_)] : nullptr;
}

QString FailureRows::spoken(int row) const {
    const ScriptFailure& failure = failures_.at(static_cast<std::size_t>(row));
    return lineOf(title(failure) + ": " + firstLine(failure));
}

QRect FailureRows::rowRect(int row) const {
    const auto& metrics = style_.metrics;
    const QRect place(0, metrics.listPadding + row * metrics.rowPitch, width(), metrics.rowPitch);
    return place.adjusted(metrics.rowMargin, metrics.rowGap, -metrics.rowMargin, -metrics.rowGap);
}

QRect FailureRows::chipRect(int row) const {
    const QRect inner =
        rowRect(row).adjusted(style_.metrics.rowPadding, 0, -style_.metrics.rowPadding, 0);
    const int chip = chipWidth(style_, kDismiss);
    return {inner.right() - chip + 1, inner.y(), chip, inner.height()};
}

void FailureRows::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(0, 0, width(), 1), style_.theme.line);
    for (int row = 0; row < count(); ++row) {
        paintRow(painter, row);
    }
}

void FailureRows::paintRow(QPainter& painter, int row) const {
    const auto& metrics = style_.metrics;
    const ScriptFailure& failure = failures_[static_cast<std::size_t>(row)];
    const QRect area = rowRect(row);
    painter.setPen(selection_ == row ? QPen(style_.theme.failure, 1.5) : QPen(Qt::NoPen));
    painter.setBrush(style_.theme.failureGround);
    painter.drawRoundedRect(area, metrics.rowRadius, metrics.rowRadius);

    const QRect chip = chipRect(row);
    paintChip(painter, chip, style_, kDismiss);
    const QString status = QString::number(failure.status);
    const int statusWidth = chipWidth(style_, status);
    paintChipText(painter, QRect(chip.left() - statusWidth, chip.y(), statusWidth, chip.height()),
                  style_, status);

    const QFontMetrics titleFont(style_.titleFont);
    const QFontMetrics detailFont(style_.subtitleFont);
    const QRect icon(area.x() + metrics.rowPadding, area.center().y() - metrics.icon / 2 + 1,
                     metrics.icon, metrics.icon);
    paintWarning(painter, icon);
    const QRect texts = area.adjusted(2 * metrics.rowPadding + metrics.icon, 0, 0, 0);
    const int room = chip.left() - statusWidth - metrics.rowPadding - texts.left();
    const QRect lines(texts.left(), texts.y(), room, texts.height());
    const int top = area.y() + (area.height() - titleFont.height() - detailFont.height()) / 2;
    painter.setPen(style_.theme.failure);
    paintLine(painter, lines, top + titleFont.ascent(), MarkedText(title(failure)),
              style_.titleFont, {});
    painter.setPen(style_.theme.dim);
    paintLine(painter, lines, top + titleFont.height() + detailFont.ascent(),
              MarkedText(firstLine(failure)), style_.subtitleFont, {});
}

void FailureRows::paintWarning(QPainter& painter, const QRect& area) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(kWarning);
    painter.drawRoundedRect(area, area.width() / 4.0, area.width() / 4.0);
    QFont font = style_.titleFont;
    font.setPixelSize(area.height() * 5 / 8);
    font.setWeight(QFont::Bold);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(area, Qt::AlignCenter, QStringLiteral("!"));
}

void FailureRows::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void FailureRows::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    for (int row = 0; row < count(); ++row) {
        if (event->button() != Qt::LeftButton || !rowRect(row).contains(place)) {
            continue;
        }
        const ScriptFailure failure = failures_[static_cast<std::size_t>(row)];
        const auto& action = chipRect(row).contains(place) ? onDismiss : onOpen;
        if (action) {
            action(failure);
        }
        return;
    }
}

} // namespace pello
