#pragma once

#include <QSocketNotifier>

#include <functional>
#include <optional>

namespace pello {

/// Turns the signals that ask a process to end (hangup, interrupt, terminate) into an ordinary
/// event, so that the program ends by its own means. One object at a time, made before any thread.
class QuitSignals {
public:
    /// Calls `quit` on the main thread for each such signal. Needs the toolkit's event loop.
    explicit QuitSignals(std::function<void()> quit);
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    int descriptor_;
    std::optional<QSocketNotifier> notifier_;
};

} // namespace pello
