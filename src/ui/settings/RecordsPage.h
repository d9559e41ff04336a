#pragma once

#include "core/settings/PelloSettings.h"
#include "ui/settings/RecordTable.h"
#include "ui/settings/RecordView.h"
#include "ui/settings/SettingsPage.h"

#include <QLabel>

#include <memory>

namespace pello {

/// A page with one table of records: bangs, or aliases.
class RecordsPage final : public SettingsPage {
public:
    /// What the page says, and the name of the file that it offers to export to.
    struct Texts {
        QString title;
        QString description;
        QString file;
    };

    RecordsPage(const Texts& texts, std::unique_ptr<RecordTable> table);

    /// The pages of the two lists. `settings` must outlive them.
    [[nodiscard]] static std::unique_ptr<RecordsPage> bangs(PelloSettings& settings);
    [[nodiscard]] static std::unique_ptr<RecordsPage> aliases(PelloSettings& settings);

    [[nodiscard]] RecordTable& table() { return *table_; }

    /// Adds what the file holds, or says what is wrong with it.
    void importFile(const QString& path);
    /// Writes the list to the file, or says why that failed.
    void exportFile(const QString& path);

private:
    [[nodiscard]] QWidget* newTools(const Texts& texts);
    void showProblems();

    std::unique_ptr<RecordTable> table_;
    RecordView* view_;
    QLabel* status_;
    SettingRow* row_ = nullptr;
};

} // namespace pello
