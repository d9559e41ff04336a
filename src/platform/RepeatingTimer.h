#pragma once

#include "base/Subscription.h"
#include "platform/MainLoop.h"

#include <chrono>
#include <functional>

namespace pello {

/// Calls an action again and again, each time a period after the call before. Stopped at first, and
/// by its end. Main thread only.
class RepeatingTimer {
public:
    /// `loop` must outlive the timer.
    explicit RepeatingTimer(MainLoop& loop) : loop_(loop) {}
    RepeatingTimer(const RepeatingTimer&) = delete;
    RepeatingTimer& operator=(const RepeatingTimer&) = delete;
    ~RepeatingTimer() = default;

    /// Calls `tick` from one `period` from now on, in place of what it called before. The action
    /// may stop the timer, start it afresh or destroy it.
    void start(std::chrono::milliseconds period, std::function<void()> tick);

    void stop() { next_.reset(); }

    [[nodiscard]] bool isRunning() const { return static_cast<bool>(next_); }

private:
    MainLoop& loop_;
    Subscription next_;
};

} // namespace pello
