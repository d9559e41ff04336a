#include "Preview.h"

#include <QPalette>

namespace pello {
namespace {

void makeDark() {
    QPalette dark(QColor(0x3a, 0x3a, 0x42), QColor(0x26, 0x26, 0x2b));
    dark.setColor(QPalette::Base, QColor(0x30, 0x30, 0x36));
    dark.setColor(QPalette::AlternateBase, QColor(0x35, 0x35, 0x3c));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0x74, 0xd8));
    dark.setColor(QPalette::Link, QColor(0x8a, 0xb4, 0xf8));
    QApplication::setPalette(dark);
}

} // namespace

Preview::Preview(int& argc, char** argv, const QList<QCommandLineOption>& options)
    : application_(argc, argv) {
    arguments_.addOption({"dark", "Dark appearance"});
    arguments_.addOptions(options);
    arguments_.process(application_);
    if (has("dark")) {
        makeDark();
    }
}

} // namespace pello
