#include "ui/tray/TrayIcon.h"

#include "ui/panel/MarkedText.h"
#include "ui/theme/PelloIcon.h"
#include "ui/tray/FailureDialog.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPalette>

namespace pello {
namespace {

constexpr int kSize = 64;                  // scaled down to what the tray shows
constexpr QRect kLetter(-14, -14, 92, 92); // the letter alone, without the tile's margins
constexpr QColor kMark(0xe0, 0x3c, 0x31);

} // namespace

TrayIcon::TrayIcon(PelloController& controller, ScriptFailureLog& failures)
    : controller_(controller),
      failures_(failures),
      changing_(failures.changed.connect([this] { refresh(); })) {
    menu_.installEventFilter(this);
    refresh();
}

void TrayIcon::appear() {
    icon_.emplace();
    icon_->setContextMenu(&menu_);
    icon_->setToolTip(QStringLiteral("Pello"));
    QObject::connect(&*icon_, &QSystemTrayIcon::activated, &*icon_,
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) {
                             controller_.toggle();
                         }
                     });
    redraw();
    icon_->show();
}

void TrayIcon::refresh() {
    const auto& failures = failures_.failures();
    redraw();
    menu_.clear();
    menu_.addAction(QStringLiteral("Open Pello"), &menu_, [this] { controller_.show(); });
    menu_.addSeparator();
    for (const ScriptFailure& failure : failures) {
        QString line = lineOf(failure.name + " failed");
        line.replace(QLatin1Char('&'), QLatin1String("&&")); // it would underline the next letter
        menu_.addAction(line, &menu_,
                        [this, failure] { showFailure(failure, controller_, failures_); });
    }
    menu_.addSeparator();
    menu_.addAction(QStringLiteral("Settings…"), &menu_, [this] {
        if (onSettings) {
            onSettings();
        }
    });
    menu_.addAction(QStringLiteral("Set-up Guide…"), &menu_, [this] {
        if (onGuide) {
            onGuide();
        }
    });
    menu_.addAction(QStringLiteral("Write a Sample Script"), &menu_,
                    [this] { controller_.writeSampleScript(); });
    menu_.addSeparator();
    addCommand(QStringLiteral("What’s New in Pello"), controller_.onShowReleaseNotes);
    addCommand(QStringLiteral("Check for Updates"), controller_.onCheckForUpdates);
    menu_.addSeparator();
    menu_.addAction(QStringLiteral("Quit Pello"), &menu_, [] { QApplication::quit(); });
}

/// What `action` does is installed after the tray was made.
void TrayIcon::addCommand(const QString& text, const std::function<void()>& action) {
    menu_.addAction(text, &menu_, [&action] {
        if (action) {
            action();
        }
    });
}

void TrayIcon::redraw() {
    if (icon_) {
        icon_->setIcon(drawn(!failures_.failures().empty(),
                             QApplication::palette().color(QPalette::WindowText)));
    }
}

/// The menu hears of the desktop's colours, which the icon is drawn in.
bool TrayIcon::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        redraw();
    }
    return QObject::eventFilter(watched, event);
}

QIcon TrayIcon::drawn(bool isMarked, const QColor& colour) {
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    paintPelloLetter(painter, QRectF(kLetter), colour);
    if (isMarked) {
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(QPointF(48, 16), 17, 17);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setBrush(kMark);
        painter.drawEllipse(QPointF(48, 16), 13, 13);
    }
    return {pixmap};
}

} // namespace pello
