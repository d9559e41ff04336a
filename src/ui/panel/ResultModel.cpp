#include "ui/panel/ResultModel.h"

#include "ui/panel/MarkedText.h"

#include <QStringList>

#include <algorithm>

namespace pello {

namespace {

QString spoken(const LaunchItem& item) {
    QStringList parts{lineOf(item.title)};
    for (const auto* part : {&item.subtitle, &item.accessory}) {
        if (*part) {
            parts << lineOf(**part);
        }
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

void ResultModel::setResults(std::span<const SearchResult> results) {
    if (std::ranges::equal(results, results_)) {
        return;
    }
    beginResetModel();
    results_.assign(results.begin(), results.end());
    endResetModel();
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
    const LaunchItem& item = *result(index.row()).item;
    switch (role) {
    case Qt::DisplayRole:
        return lineOf(item.title);
    case Qt::AccessibleTextRole:
        return spoken(item);
    default:
        return {};
    }
}

} // namespace pello
