#include "app/TerminalPlatform.h"

namespace pello {

TerminalPlatform::TerminalPlatform(std::ostream& terminal) : pasteboard_(terminal) {
    keystrokes_.outcome = Keystrokes::Outcome::impossible; // the user pastes
}

/// Scans that are under way read through the services, which go before the loop does.
TerminalPlatform::~TerminalPlatform() {
    loop_.endBackgroundWork();
}

} // namespace pello
