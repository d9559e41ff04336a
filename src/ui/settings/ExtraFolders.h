#pragma once

#include "core/settings/Setting.h"

#include <QListWidget>
#include <QPushButton>
#include <QWidget>

#include <filesystem>
#include <vector>

namespace pello {

/// A list of folders that the user adds to and removes from.
class ExtraFolders final : public QWidget {
public:
    using Folders = std::vector<std::filesystem::path>;

    /// `setting` must outlive the list.
    explicit ExtraFolders(Setting<Folders>& setting);

    /// Adds `folder`, unless it is there.
    void add(const std::filesystem::path& folder);
    void removeSelected();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void show();
    void choose();

    Setting<Folders>& setting_;
    QListWidget* list_;
    QPushButton* remove_;
};

} // namespace pello
