#pragma once

#include "ui/settings/SettingRow.h"

#include <QFrame>
#include <QStringList>
#include <QVBoxLayout>

#include <vector>

namespace pello {

/// A card with rows that belong together, under a title.
class SettingsSection final : public QWidget {
public:
    /// Without a title there is none to be read; it is still what the section is found by.
    explicit SettingsSection(const QString& title);

    SettingRow& addRow(const QString& label, const QString& description, QWidget* control,
                       SettingRow::Placement placement = SettingRow::Placement::beside);

    [[nodiscard]] const std::vector<SettingRow*>& rows() const { return rows_; }

    /// Shows only the rows whose texts, with `context`, hold all of `words`. How many those are.
    int filter(const QString& context, const QStringList& words);

private:
    QString title_;
    QFrame* card_;
    QVBoxLayout* cardLayout_;
    std::vector<SettingRow*> rows_;
};

} // namespace pello
