#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <functional>
#include <string>
#include <string_view>

namespace pello {

/// A list of records of the user's, to be edited as a table: a row for each, whose order matters.
///
/// Every change is written to the setting at once. Rows move within the table by `moveRows` and by
/// being dropped between others.
class RecordTable : public QAbstractTableModel {
public:
    /// Adds an empty record at the end.
    virtual void append() = 0;

    /// What the user should mend, in sentences; empty when nothing.
    [[nodiscard]] virtual QStringList problems() const = 0;

    /// The list as JSON.
    [[nodiscard]] virtual std::string exported() const = 0;

    /// Adds the records of a list in JSON. False, with nothing changed, when it is none.
    virtual bool import(std::string_view json) = 0;

    /// Called after every change, also from elsewhere.
    std::function<void()> onChanged;

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
};

} // namespace pello
