#include "ui/settings/TabDelegate.h"

#include <QIcon>
#include <QPainter>

namespace pello {
namespace {

constexpr int kRadius = 8;
constexpr int kGap = 10;

} // namespace

void TabDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QRect ground = option.rect.adjusted(1, 1, -1, -1);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    if (isSelected) {
        painter->setBrush(option.palette.color(QPalette::Active, QPalette::Highlight));
        painter->drawRoundedRect(ground, kRadius, kRadius);
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(option.palette.color(QPalette::Text), 1, Qt::DotLine));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(ground).adjusted(2.5, 2.5, -2.5, -2.5), kRadius, kRadius);
    }
    const QSize side = option.decorationSize;
    const QRect icon(QPoint(ground.left() + kGap, ground.center().y() - side.height() / 2 + 1),
                     side);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, icon);
    painter->setPen(option.palette.color(QPalette::Active, isSelected ? QPalette::HighlightedText
                                                                      : QPalette::WindowText));
    painter->drawText(ground.adjusted(icon.right() + kGap - ground.left(), 0, -kGap, 0),
                      Qt::AlignVCenter | Qt::AlignLeft, index.data().toString());
    painter->restore();
}

} // namespace pello
