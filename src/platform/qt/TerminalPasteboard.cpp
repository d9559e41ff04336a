#include "platform/qt/TerminalPasteboard.h"

#include <QByteArray>

#include <ostream>

namespace pello {

void TerminalPasteboard::setText(std::string_view text) {
    text_ = text;
    const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
    terminal_ << "\033]52;c;" << bytes.toBase64().constData() << '\a' << std::flush;
}

} // namespace pello
