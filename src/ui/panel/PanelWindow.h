#pragma once

#include "base/Subscription.h"
#include "core/controller/LauncherPanel.h"
#include "core/controller/PelloController.h"
#include "platform/Compositor.h"
#include "scripts/ScriptFailureLog.h"
#include "ui/icons/IconLoader.h"
#include "ui/panel/FailureRows.h"
#include "ui/panel/NoticeRow.h"
#include "ui/panel/PanelGround.h"
#include "ui/panel/PanelKeys.h"
#include "ui/panel/PanelShadow.h"
#include "ui/panel/ResultList.h"
#include "ui/panel/SearchField.h"
#include "ui/theme/PanelStyle.h"

#include <QTimer>
#include <QWidget>

#include <optional>
#include <string>

namespace pello {

/// The floating panel: shows what the controller holds and passes on what the user does.
///
/// Made once and kept. Registers itself as the controller's panel.
class PanelWindow final : public QWidget, public LauncherPanel {
public:
    /// All must outlive the panel.
    PanelWindow(PelloController& controller, IconLoader& icons, const Compositor& compositor,
                ScriptFailureLog& failures);
    ~PanelWindow() override;
    PanelWindow(const PanelWindow&) = delete;
    PanelWindow& operator=(const PanelWindow&) = delete;

    void present() override;
    void dismiss() override;
    [[nodiscard]] bool isPresented() const override { return isVisible(); }

    /// `open` is called when the user wants to change the settings.
    void setSettingsOpener(std::function<void()> open) { keys_.onSettings = std::move(open); }

    /// What is shown of the window: without the shadow and without the room for more rows.
    [[nodiscard]] QRect body() const;

    /// The parts, for tests that look at what is shown.
    [[nodiscard]] SearchField& field() { return field_; }
    [[nodiscard]] ResultList& list() { return list_; }
    [[nodiscard]] FailureRows& failures() { return failureRows_; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void connectParts();
    void restyle();
    void refresh();
    void takeKeyboard();
    void noticeFocus();
    void openFailure(const ScriptFailure& failure);
    void activationChanged();

    void chooseScreen();
    void place();
    void fitHeight();
    void arrange();
    void shapeWindow();
    void paintShadow(QPainter& painter);
    void endDrag();
    [[nodiscard]] int usualHeight() const;
    [[nodiscard]] QRect screenArea() const;

    PelloController& controller_;
    IconLoader& icons_;
    const Compositor& compositor_;
    PanelStyle style_;
    SearchField field_;
    ResultList list_;
    ScriptFailureLog& failures_;
    FailureRows failureRows_;
    NoticeRow notice_;
    PanelKeys keys_;
    PanelGround ground_;
    PanelShadow shadow_;
    int margin_ = 0;     // the shadow's room on each side; none without a compositor
    int bodyHeight_ = 0; // of the part that is shown; the window is higher
    bool wasActive_ = false;
    bool isKeyFromBefore_ = false; // what repeats is the key that opened the panel, still held
    std::string shownQuery_;
    QTimer activationCheck_;
    QTimer focusCheck_;
    std::optional<QPoint> grip_; // where the pointer holds the panel while dragging
    std::vector<Subscription> subscriptions_;
};

} // namespace pello
