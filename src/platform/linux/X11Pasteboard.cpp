#include "platform/linux/X11Pasteboard.h"

#include "base/Text.h"

#include <QClipboard>
#include <QGuiApplication>

namespace pello {
namespace {

using std::chrono::steady_clock;

// A healthy program hands its text over in about a millisecond, on a machine that is busy in some
// more. Somebody types while this is waited for, so it is not long, and not waited for again at the
// next letters.
constexpr std::chrono::milliseconds kPatience{200};
constexpr std::chrono::seconds kPause{3};

} // namespace

void X11Pasteboard::setText(std::string_view text) {
    QGuiApplication::clipboard()->setText(
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

std::string X11Pasteboard::text() {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    const bool isX11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>() != nullptr;
    // What this program holds itself it could not hand to itself while it waits.
    return isX11 && !clipboard->ownsClipboard() ? textOfOthers() : clipboard->text().toStdString();
}

bool X11Pasteboard::holdsOwn(std::string_view text) {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    return clipboard->ownsClipboard() && clipboard->text().toStdString() == text;
}

std::string X11Pasteboard::textOfOthers() {
    const auto begin = steady_clock::now();
    if (begin < askAgain_) {
        return {};
    }
    const auto text = selection_.clipboard(kPatience);
    const auto end = steady_clock::now();
    if (!text && end - begin >= kPatience) {
        askAgain_ = end + kPause;
    }
    return text::wellFormed(text.value_or(""));
}

} // namespace pello
