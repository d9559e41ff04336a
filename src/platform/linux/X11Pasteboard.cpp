#include "platform/linux/X11Pasteboard.h"

#include "base/Text.h"

#include <QClipboard>
#include <QGuiApplication>

namespace pello {
namespace {

using std::chrono::steady_clock;

// A program that was silent for so long hangs.
constexpr std::chrono::seconds kSilence{1};

// A healthy program hands its text over in about a millisecond, on a machine that is busy in some
// more. Somebody types while this is waited for, so it is not long, and not waited for again at the
// next letters.
constexpr X11Selection::Limits kWhileTyping{
    .silence = kSilence, .whole = std::chrono::milliseconds(200), .bytes = std::size_t{1} << 20U};
constexpr std::chrono::seconds kPause{3};

// Nobody is kept from typing by this, and what is not read may be lost. Long texts come in hundreds
// of pieces, some hundred megabytes a second.
constexpr X11Selection::Limits kWithTime{
    .silence = kSilence, .whole = std::chrono::seconds(5), .bytes = std::size_t{64} << 20U};

/// Whether the toolkit would have to wait for another program to tell what lies there.
bool isElsewhere() {
    // What this program holds itself it could not hand to itself while it waits.
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>() != nullptr &&
           !QGuiApplication::clipboard()->ownsClipboard();
}

QString toolkitText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

void X11Pasteboard::setText(std::string_view text) {
    QGuiApplication::clipboard()->setText(toolkitText(text));
}

std::optional<std::string> X11Pasteboard::text() {
    return isElsewhere() ? textOfOthers() : QGuiApplication::clipboard()->text().toStdString();
}

void X11Pasteboard::read(const std::function<void(std::optional<std::string>)>& action) {
    if (isElsewhere()) {
        selection_.read(kWithTime, action);
    } else {
        action(text());
    }
}

bool X11Pasteboard::holdsOwn(std::string_view text) {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    return clipboard->ownsClipboard() && clipboard->text() == toolkitText(text);
}

std::optional<std::string> X11Pasteboard::textOfOthers() {
    if (steady_clock::now() < askAgain_) {
        return std::nullopt;
    }
    const auto text = selection_.wait(kWhileTyping);
    if (!text) {
        askAgain_ = steady_clock::now() + kPause;
        return std::nullopt;
    }
    return text::wellFormed(*text);
}

} // namespace pello
