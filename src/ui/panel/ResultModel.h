#pragma once

#include "core/items/SearchResult.h"

#include <QAbstractListModel>

#include <span>
#include <string>
#include <vector>

namespace pello {

/// The rows of the panel, for Qt's views.
class ResultModel final : public QAbstractListModel {
public:
    /// Takes over `results`; views are told only when they differ from what is there.
    void setResults(std::span<const SearchResult> results);

    /// Takes over a reason for each row, shown as its subtitle; none give the rows their own again.
    void setReasons(std::span<const std::string> reasons);

    /// Has `row` tell assistive technology `remark`, too; nothing when that is empty.
    void setRemark(int row, const QString& remark);

    /// What stands below the title of `row`.
    [[nodiscard]] QString subtitle(int row) const;

    /// The hit in `row`, valid until the next `setResults`.
    [[nodiscard]] const SearchResult& result(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

    /// Title, and for assistive technology the whole row in words and its place. Nothing else: the
    /// delegate asks `result`.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    [[nodiscard]] QString spoken(int row) const;

    std::vector<SearchResult> results_;
    std::vector<std::string> reasons_;
    int remarkedRow_ = -1;
    QString remark_;
};

} // namespace pello
