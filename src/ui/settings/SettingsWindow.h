#pragma once

#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsServices.h"
#include "ui/settings/SettingsTab.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWidget>

#include <optional>
#include <vector>

namespace pello {

/// The settings, on pages that are listed at the side, with a field that finds them.
///
/// What is searched for is shown from all pages at once. Every change is in effect and written as
/// it is made. Closing hides the window; its size is remembered. Main thread only.
class SettingsWindow final : public QWidget {
public:
    explicit SettingsWindow(SettingsServices services);
    ~SettingsWindow() override;
    SettingsWindow(const SettingsWindow&) = delete;
    SettingsWindow& operator=(const SettingsWindow&) = delete;

    /// Brings the window to the front, with that page or the one it last showed.
    void present(std::optional<SettingsTab> tab = std::nullopt);

    /// Shows only the rows that `query` finds, on whichever page; the current page when it is
    /// blank.
    void search(const QString& query);

    [[nodiscard]] SettingsTab currentTab() const;
    [[nodiscard]] SettingsPage& page(SettingsTab tab) const;
    [[nodiscard]] QLineEdit& searchField() { return *search_; }

protected:
    bool event(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QWidget* newSidebar();
    [[nodiscard]] QScrollArea* newContents();
    void addPage(SettingsPage* page);
    void addShortcuts();
    void guardFromWheel();
    void showTab();
    void focusFirst();
    void takePalette();
    void restoreSize();
    void rememberSize();

    SettingsServices services_;
    QLineEdit* search_;
    QListWidget* tabs_;
    QLabel* nothingFound_;
    QVBoxLayout* pageLayout_;
    QScrollArea* contents_;
    std::vector<SettingsPage*> pages_;
    bool isTakingPalette_ = false;
};

} // namespace pello
