#pragma once

#include <QStyledItemDelegate>

namespace pello {

/// Paints the list of pages: an icon and a name, on a rounded ground where it is selected.
class TabDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace pello
