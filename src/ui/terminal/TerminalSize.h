#pragma once

namespace pello {

/// How many lines and columns a terminal's window has.
struct TerminalSize {
    int rows = 24;
    int columns = 80;

    friend bool operator==(const TerminalSize&, const TerminalSize&) = default;
};

} // namespace pello
