#pragma once

#include <QStyledItemDelegate>

namespace pello {

/// Edits the cells of a table so that every letter counts as it is typed. Escape brings back what
/// stood there before.
class CellEditor final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
};

} // namespace pello
