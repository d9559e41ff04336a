#pragma once

#include <QSocketNotifier>

#include <functional>
#include <optional>

namespace pello {

/// Turns the signals that ask a process to end (hangup, interrupt, terminate) into an ordinary
/// event, so that the program ends by its own means. One object at a time.
class QuitSignals {
public:
    /// Holds the signals back from now on. To be made before there are other threads, which would
    /// take them: before the toolkit's application object.
    QuitSignals();
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

    /// Calls `quit` on the main thread for each signal, those held back included. Needs the
    /// toolkit's event loop.
    void deliver(std::function<void()> quit);

    /// Stops delivering; to be called while the application object still lives.
    void stop() { notifier_.reset(); }

private:
    int descriptor_;
    std::optional<QSocketNotifier> notifier_;
};

} // namespace pello
