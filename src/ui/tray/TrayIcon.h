#pragma once

#include "base/Subscription.h"
#include "core/controller/PelloController.h"
#include "scripts/ScriptFailureLog.h"

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

#include <functional>
#include <optional>

namespace pello {

/// Pello in the desktop's tray: opens the panel, and is marked while a failure of a script has not
/// been dismissed. Desktops without a tray do not show it.
class TrayIcon final : public QObject {
public:
    /// Shows nothing yet. Both must outlive the icon.
    TrayIcon(PelloController& controller, ScriptFailureLog& failures);

    /// Shows the icon from now on: there is a tray.
    void appear();

    /// The user wants to change the settings.
    std::function<void()> onSettings;
    /// The user wants to be led through what the program needs.
    std::function<void()> onGuide;

    /// The icon, drawn in `colour`, with the mark or without.
    [[nodiscard]] static QIcon drawn(bool isMarked, const QColor& colour);

    /// What a click with the other button opens.
    [[nodiscard]] QMenu& menu() { return menu_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();
    void addCommand(const QString& text, const std::function<void()>& action);
    void redraw();

    PelloController& controller_;
    ScriptFailureLog& failures_;
    QMenu menu_;
    std::optional<QSystemTrayIcon> icon_;
    Subscription changing_;
};

} // namespace pello
