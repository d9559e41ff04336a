#pragma once

#include "platform/MainLoop.h"

#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <vector>

namespace pello {

/// A main loop that its owner turns by hand, on a virtual clock.
///
/// Nothing happens by itself: posted actions run in `runPending`, background work in
/// `finishBackground`, delays pass in `advance`. So every order of events can be played.
class MemoryMainLoop final : public MainLoop {
public:
    explicit MemoryMainLoop(Date start = {}) : now_(start) {}

    [[nodiscard]] Date now() const override { return now_; }
    void post(std::function<void()> action) override;
    [[nodiscard]] Subscription after(std::chrono::milliseconds delay,
                                     std::function<void()> action) override;

    /// Runs the posted actions, and those that they post.
    void runPending();

    /// How many background jobs wait to be finished.
    [[nodiscard]] std::size_t backgroundCount() const { return jobs_.size(); }

    /// Does the waiting job number `index` (0 is the oldest) and delivers its result.
    void finishBackground(std::size_t index = 0);

    /// Runs posted actions and background jobs, oldest first, until there are none. The clock
    /// stands still.
    void settle();

    /// Lets `delay` pass: timers fire in the order of their times, everything settles after each.
    void advance(std::chrono::milliseconds delay);

    /// Moves the clock without firing timers, as when the machine's clock is set.
    void setNow(Date now) { now_ = now; }

protected:
    void runInBackground(std::function<void()> work, std::function<void()> done) override;

private:
    struct Job {
        std::function<void()> work;
        std::function<void()> done;
    };
    using TimerKey = std::pair<std::int64_t, std::uint64_t>; // due in milliseconds, number

    Date now_;
    std::int64_t elapsed_ = 0; // milliseconds let pass so far
    std::uint64_t timerCount_ = 0;
    std::mutex postMutex_;
    std::deque<std::function<void()>> posted_;
    std::vector<Job> jobs_;
    std::shared_ptr<std::map<TimerKey, std::function<void()>>> timers_ =
        std::make_shared<std::map<TimerKey, std::function<void()>>>();
};

} // namespace pello
