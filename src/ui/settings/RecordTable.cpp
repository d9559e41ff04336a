#include "ui/settings/RecordTable.h"

#include <QMimeData>

#include <memory>

namespace pello {
namespace {

const QString kRowType = QStringLiteral("application/x-pello-table-row");

} // namespace

Qt::ItemFlags RecordTable::flags(const QModelIndex& index) const {
    // Only between rows can one be dropped: never onto another.
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable |
                                 Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren
                           : Qt::ItemIsDropEnabled;
}

QStringList RecordTable::mimeTypes() const {
    return {kRowType};
}

QMimeData* RecordTable::mimeData(const QModelIndexList& indexes) const {
    if (indexes.isEmpty()) {
        return nullptr;
    }
    auto data = std::make_unique<QMimeData>();
    data->setData(kRowType, QByteArray::number(indexes.front().row()));
    return data.release();
}

bool RecordTable::dropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                               int /*column*/, const QModelIndex& parent) {
    bool isNumber = false;
    const int from = data->data(kRowType).toInt(&isNumber);
    const bool isRow = isNumber && from >= 0 && from < rowCount();
    if (action == Qt::MoveAction && isRow && !parent.isValid()) {
        const int to = row < 0 ? rowCount() : row;
        moveRows({}, from, 1, {}, to);
    }
    return false; // moved already: the view is not to remove the row that was dragged
}

} // namespace pello
