#pragma once

#include <QSocketNotifier>

#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

namespace pello {

/// Turns signals into ordinary events.
class HeldSignals {
public:
    /// Holds the signals back from now on. To be made before there are other threads, which would
    /// take them: before the toolkit's application object.
    explicit HeldSignals(std::initializer_list<int> signals);
    ~HeldSignals();
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

    /// Calls `come` on the main thread for each signal, those held back included. Needs the
    /// toolkit's event loop.
    void deliver(std::function<void()> come);

    /// Stops delivering; to be called while the application object still lives.
    void stop() { notifier_.reset(); }

private:
    std::vector<int> signals_;
    int descriptor_;
    std::optional<QSocketNotifier> notifier_;
};

} // namespace pello
