#include "ui/panel/ResultDelegate.h"

#include "ui/panel/Chip.h"
#include "ui/panel/MarkedText.h"
#include "ui/panel/ResultModel.h"
#include "ui/panel/TextLine.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace pello {

namespace {

/// The part of `area` that lies `start` from where reading starts and is `width` wide.
QRect part(const QRect& area, Qt::LayoutDirection direction, int start, int width) {
    const QRect unmirrored(area.x() + start, area.y(), width, area.height());
    return QStyle::visualRect(direction, area, unmirrored);
}

constexpr qsizetype kLongestEnd = 300; // of a subtitle; no screen shows more in one row

/// `text` shortened to `width`: paths in their middle, where they say least.
QString shortened(QString text, const QFont& font, int width) {
    const bool isPath = text.contains(QLatin1Char('/'));
    if (text.size() > 2 * kLongestEnd) { // measuring what was pasted takes long
        text = text.first(kLongestEnd) + text.last(kLongestEnd);
    }
    return QFontMetrics(font).elidedText(text, isPath ? Qt::ElideMiddle : Qt::ElideRight, width);
}

bool isAnswer(const LaunchItem& item) {
    return item.kind == LaunchItem::Kind::calculation;
}

} // namespace

ResultDelegate::ResultDelegate(const PanelStyle& style, IconLoader& icons)
    : style_(style), icons_(icons) {}

QSize ResultDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                               const QModelIndex& /*index*/) const {
    return {style_.metrics.width, style_.metrics.rowPitch};
}

void ResultDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    const auto* model = dynamic_cast<const ResultModel*>(index.model());
    if (model == nullptr) {
        return;
    }
    const SearchResult& result = model->result(index.row());
    const auto& metrics = style_.metrics;
    const QRect row = option.rect.adjusted(metrics.rowMargin, metrics.rowGap, -metrics.rowMargin,
                                           -metrics.rowGap);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setLayoutDirection(option.direction);
    if (option.state.testFlag(QStyle::State_Selected)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(style_.theme.selection);
        painter->drawRoundedRect(row, metrics.rowRadius, metrics.rowRadius);
    }
    const QRect inner = row.adjusted(metrics.rowPadding, 0, -metrics.rowPadding, 0);
    QRect icon = part(inner, option.direction, 0, metrics.icon);
    icon.setTop(inner.center().y() - metrics.icon / 2 + 1);
    icon.setHeight(metrics.icon);
    icons_.paint(*painter, icon, *result.item, style_.titleFont, style_.theme.text);

    const int textStart = metrics.icon + metrics.rowPadding;
    const QRect texts = part(inner, option.direction, textStart, inner.width() - textStart);
    if (!damage.intersects(texts)) {
        return;
    }
    const Accessory end = accessory(*result.item, option.state.testFlag(QStyle::State_Selected));
    paintTexts(*painter, paintAccessory(*painter, texts, option.direction, end), result,
               model->subtitle(index.row()));
}

void ResultDelegate::requestIcon(const LaunchItem& item, double scale) const {
    icons_.request(item, style_.metrics.icon, scale);
}

QRect ResultDelegate::iconColumn(const QRect& list, Qt::LayoutDirection direction) const {
    const auto& metrics = style_.metrics;
    return part(list, direction, metrics.rowMargin + metrics.rowPadding, metrics.icon);
}

/// Words stand by themselves; keys, and what Return does in the selected row, in a pill.
ResultDelegate::Accessory ResultDelegate::accessory(const LaunchItem& item, bool isSelected) const {
    const QString own = item.accessory ? lineOf(*item.accessory) : QString();
    const bool isGlyph = item.kind == LaunchItem::Kind::command &&
                         std::holds_alternative<LaunchItem::TextIcon>(item.icon);
    if (isSelected && remark) {
        const std::string_view words = remarkText(*remark);
        return {.text = QString::fromUtf8(words.data(), qsizetype(words.size())), .isChip = true};
    }
    if (isSelected && (isAnswer(item) || isGlyph)) { // the accessory says what Return does
        return {.text = QStringLiteral("↩ ") + own, .isChip = true};
    }
    if (isSelected && own.isEmpty()) {
        return {.text = QStringLiteral("↩"), .isChip = true};
    }
    return {.text = own, .isChip = isSelected || item.kind == LaunchItem::Kind::menuItem};
}

/// Paints `accessory`, if there is one, and returns the room that is left for the texts.
QRect ResultDelegate::paintAccessory(QPainter& painter, const QRect& area,
                                     Qt::LayoutDirection direction,
                                     const Accessory& accessory) const {
    if (accessory.text.isEmpty()) {
        return area;
    }
    const int width = std::min(chipWidth(style_, accessory.text), area.width() / 3);
    const QRect place = part(area, direction, area.width() - width, width);
    if (accessory.isChip) {
        paintChip(painter, place, style_, accessory.text);
    } else {
        paintChipText(painter, place, style_, accessory.text);
    }
    const int left = area.width() - width - style_.metrics.rowPadding;
    return part(area, direction, 0, left);
}

void ResultDelegate::paintTexts(QPainter& painter, const QRect& area, const SearchResult& result,
                                const QString& subtitle) const {
    const LaunchItem& item = *result.item;
    const QFont& titleFont = isAnswer(item) ? style_.answerFont : style_.titleFont;
    const QFontMetrics title(titleFont);
    const int below = subtitle.isEmpty() ? 0 : QFontMetrics(style_.subtitleFont).height();
    const int top = area.y() + (area.height() - title.height() - below) / 2;

    painter.setPen(style_.theme.text);
    paintLine(painter, area, top + title.ascent(), MarkedText(item.title, result.titleMatches),
              titleFont, {.color = style_.theme.accent});
    painter.setPen(style_.theme.dim);
    const QString shown = shortened(subtitle, style_.subtitleFont, area.width());
    paintLine(painter, area, top + title.height() + QFontMetrics(style_.subtitleFont).ascent(),
              MarkedText(shown.toUtf8().toStdString()), style_.subtitleFont, {});
}

} // namespace pello
