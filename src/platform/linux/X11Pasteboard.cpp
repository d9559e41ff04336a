#include "platform/linux/X11Pasteboard.h"

#include "base/Text.h"

#include <QClipboard>
#include <QGuiApplication>

#include <chrono>

namespace pello {
namespace {

// A healthy program hands its text over in about a millisecond. This may be waited for while
// somebody types, so it is not much more than that.
constexpr std::chrono::milliseconds kPatience{60};

} // namespace

void X11Pasteboard::setText(std::string_view text) {
    QGuiApplication::clipboard()->setText(
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

std::string X11Pasteboard::text() {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    const bool isX11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>() != nullptr;
    // What this program holds itself it could not hand to itself while it waits.
    return isX11 && !clipboard->ownsClipboard()
               ? text::wellFormed(selection_.clipboard(kPatience).value_or(""))
               : clipboard->text().toStdString();
}

} // namespace pello
