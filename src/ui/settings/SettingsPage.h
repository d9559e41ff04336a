#pragma once

#include "ui/settings/SettingsSection.h"

#include <QString>
#include <QStringList>
#include <QVBoxLayout>
#include <QWidget>

#include <vector>

namespace pello {

/// One page of the settings window: a title over sections of rows.
class SettingsPage : public QWidget {
public:
    /// Whether the page takes the height that is left, or leaves it free.
    enum class Height { needed, all };

    explicit SettingsPage(const QString& title, Height height = Height::needed);

    [[nodiscard]] const QString& title() const { return title_; }

    SettingsSection& addSection(const QString& title);

    /// The row with this label; null when there is none.
    [[nodiscard]] SettingRow* row(const QString& label) const;

    /// The first control that is to be seen; null when there is none.
    [[nodiscard]] QWidget* firstControl() const;

    /// Shows only the rows whose texts hold all of `words`. How many those are.
    int filter(const QStringList& words);

    /// Reads again what nobody tells about when it changes. Called when the window is shown.
    virtual void refresh() {}

private:
    QString title_;
    QVBoxLayout* sectionLayout_;
    Height height_;
    std::vector<SettingsSection*> sections_;
};

} // namespace pello
