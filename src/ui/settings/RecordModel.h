#pragma once

#include "core/settings/Setting.h"
#include "ui/settings/RecordColumns.h"
#include "ui/settings/RecordTable.h"
#include "ui/settings/RecordText.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace pello {

/// The table of one setting that holds a list of records. Follows the setting.
template <class Record>
class RecordModel final : public RecordTable {
public:
    using Records = std::vector<Record>;

    /// `setting` must outlive the model.
    explicit RecordModel(Setting<Records>& setting) : setting_(setting), records_(setting.get()) {
        following_ = setting.changed.connect([this] { follow(); });
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(records_.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(kColumns.size());
    }

    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override {
        const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole;
        return isTitle && section < columnCount() ? text(column(section).title) : QVariant();
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid()) {
            return {};
        }
        switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
        case Qt::ToolTipRole:
            return text(cell(index));
        case Qt::AccessibleTextRole:
            return text(column(index.column()).title) + QStringLiteral(": ") + text(cell(index));
        case kPlaceholderRole:
            return text(column(index.column()).placeholder);
        default:
            return {};
        }
    }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        if (!index.isValid() || role != Qt::EditRole) {
            return false;
        }
        std::string typed = value.toString().toStdString();
        if (typed != cell(index)) {
            records_[at(index.row())].*column(index.column()).text = std::move(typed);
            Q_EMIT dataChanged(index, index);
            write();
        }
        return true;
    }

    void append() override {
        beginInsertRows({}, rowCount(), rowCount());
        records_.emplace_back();
        endInsertRows();
        write();
    }

    bool removeRows(int row, int count, const QModelIndex& parent = {}) override {
        if (parent.isValid() || row < 0 || count < 1 || row + count > rowCount()) {
            return false;
        }
        beginRemoveRows({}, row, row + count - 1);
        records_.erase(records_.begin() + row, records_.begin() + row + count);
        endRemoveRows();
        write();
        return true;
    }

    bool moveRows(const QModelIndex& sourceParent, int sourceRow, int count,
                  const QModelIndex& destinationParent, int destinationChild) override {
        const bool isRange = sourceRow >= 0 && count > 0 && sourceRow + count <= rowCount() &&
                             destinationChild >= 0 && destinationChild <= rowCount();
        if (!isRange || !beginMoveRows(sourceParent, sourceRow, sourceRow + count - 1,
                                       destinationParent, destinationChild)) {
            return false;
        }
        const auto moved = records_.begin() + sourceRow;
        const auto behind = moved + count;
        const auto target = records_.begin() + destinationChild;
        if (destinationChild < sourceRow) {
            std::rotate(target, moved, behind);
        } else {
            std::rotate(moved, behind, target);
        }
        endMoveRows();
        write();
        return true;
    }

    [[nodiscard]] QStringList problems() const override {
        QStringList problems;
        for (const std::string& problem : Record::problems(records_)) {
            problems.append(QString::fromStdString(problem));
        }
        return problems;
    }

    [[nodiscard]] std::string exported() const override { return recordText::exported(records_); }

    bool import(std::string_view json) override {
        const auto added = recordText::parse<Record>(json);
        if (added) {
            replace(recordText::merged(records_, *added));
            write();
        }
        return added.has_value();
    }

    /// What stands in the editor of an empty cell.
    static constexpr int kPlaceholderRole = Qt::UserRole;

private:
    static constexpr auto& kColumns = RecordColumns<Record>::columns;

    static const RecordColumn<Record>& column(int number) {
        return kColumns.at(static_cast<std::size_t>(number));
    }
    static std::size_t at(int row) { return static_cast<std::size_t>(row); }
    static QString text(std::string_view utf8) {
        return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
    }
    [[nodiscard]] const std::string& cell(const QModelIndex& index) const {
        return records_[at(index.row())].*column(index.column()).text;
    }

    void replace(Records records) {
        beginResetModel();
        records_ = std::move(records);
        endResetModel();
    }

    void write() {
        setting_.set(records_);
        announce();
    }

    void follow() {
        if (setting_.get() != records_) { // changed elsewhere
            replace(setting_.get());
            announce();
        }
    }

    void announce() const {
        if (onChanged) {
            onChanged();
        }
    }

    Setting<Records>& setting_;
    Records records_;
    Subscription following_;
};

} // namespace pello
