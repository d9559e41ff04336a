#pragma once

#include <QSocketNotifier>

#include <functional>
#include <string_view>

namespace pello {

/// What the user types, as events. Needs the toolkit's event loop.
class TerminalInput {
public:
    /// Calls `typed` with the bytes as they come in, and `ended` once when there will be no more.
    TerminalInput(std::function<void(std::string_view)> typed, std::function<void()> ended);

private:
    void read();

    std::function<void(std::string_view)> typed_;
    std::function<void()> ended_;
    QSocketNotifier notifier_;
};

} // namespace pello
