#include "ui/panel/ResultModel.h"

#include "ui/panel/MarkedText.h"

#include <QStringList>

#include <algorithm>

namespace pello {

void ResultModel::setResults(std::span<const SearchResult> results) {
    if (std::ranges::equal(results, results_)) {
        return;
    }
    beginResetModel();
    results_.assign(results.begin(), results.end());
    endResetModel();
}

void ResultModel::setReasons(std::span<const std::string> reasons) {
    if (!std::ranges::equal(reasons, reasons_) && rowCount() > 0) {
        reasons_.assign(reasons.begin(), reasons.end());
        dataChanged(index(0, 0), index(rowCount() - 1, 0));
    }
}

void ResultModel::setRemark(int row, const QString& remark) {
    remarkedRow_ = row;
    remark_ = remark;
}

QString ResultModel::subtitle(int row) const {
    const auto place = static_cast<std::size_t>(row);
    if (place < reasons_.size() && !reasons_[place].empty()) {
        return lineOf(reasons_[place]);
    }
    const auto& own = result(row).item->subtitle;
    return own ? lineOf(*own) : QString();
}

/// The whole row in words.
QString ResultModel::spoken(int row) const {
    const LaunchItem& item = *result(row).item;
    QStringList parts{lineOf(item.title), subtitle(row)};
    if (item.accessory) {
        parts << lineOf(*item.accessory);
    }
    if (row == remarkedRow_) {
        parts << remark_;
    }
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

const SearchResult& ResultModel::result(int row) const {
    return results_.at(static_cast<std::size_t>(row));
}

int ResultModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(results_.size());
}

QVariant ResultModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return lineOf(result(index.row()).item->title);
    case Qt::AccessibleTextRole:
        return spoken(index.row());
    case Qt::AccessibleDescriptionRole:
        return QStringLiteral("%1 of %2").arg(index.row() + 1).arg(rowCount());
    default:
        return {};
    }
}

} // namespace pello
