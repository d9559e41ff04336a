#include "app/AgentAppearance.h"

#include <QApplication>
#include <QPalette>

namespace pello {
namespace {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

QPalette darkPalette() {
    const QColor text(0xf2, 0xf2, 0xf5);
    QPalette dark(QColor(0x3a, 0x3a, 0x42), QColor(0x26, 0x26, 0x2c)); // derives the shades
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x23));
    dark.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2a, 0x30));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0x6d, 0xc9));
    dark.setColor(QPalette::Link, QColor(0x86, 0xb0, 0xff));
    dark.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3a, 0x42));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::HighlightedText, QPalette::ToolTipText}) {
        dark.setColor(role, text);
        dark.setColor(QPalette::Disabled, role, QColor(0x8e, 0x8e, 0x98));
    }
    dark.setColor(QPalette::PlaceholderText, QColor(0xb0, 0xb0, 0xba));
    return dark;
}

} // namespace

AgentAppearance::AgentAppearance() : onChange_(appearance_.changed.connect([this] { apply(); })) {}

void AgentAppearance::apply() const {
    QApplication::setPalette(QPalette()); // the toolkit's own, as the desktop's theme has it
    if (appearance_.preference() == DesktopAppearance::Preference::dark &&
        !isDark(QApplication::palette())) {
        QApplication::setPalette(darkPalette());
    }
}

} // namespace pello
