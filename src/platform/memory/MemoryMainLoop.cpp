#include "platform/memory/MemoryMainLoop.h"

#include <algorithm>
#include <cassert>

namespace pello {

void MemoryMainLoop::post(std::function<void()> action) {
    const std::lock_guard lock(postMutex_);
    posted_.push_back(std::move(action));
}

Subscription MemoryMainLoop::after(std::chrono::milliseconds delay, std::function<void()> action) {
    const TimerKey key{elapsed_ + std::max<std::int64_t>(0, delay.count()), timerCount_++};
    timers_->emplace(key, std::move(action));
    return Subscription([weakTimers = std::weak_ptr(timers_), key] {
        if (const auto timers = weakTimers.lock()) {
            timers->erase(key);
        }
    });
}

void MemoryMainLoop::runPending() {
    for (;;) {
        std::function<void()> action;
        {
            const std::lock_guard lock(postMutex_);
            if (posted_.empty()) {
                return;
            }
            action = std::move(posted_.front());
            posted_.pop_front();
        }
        action();
    }
}

void MemoryMainLoop::finishBackground(std::size_t index) {
    assert(index < jobs_.size());
    const auto position = jobs_.begin() + static_cast<std::ptrdiff_t>(index);
    const Job job = std::move(*position);
    jobs_.erase(position);
    job.work();
    job.done();
}

void MemoryMainLoop::settle() {
    runPending();
    while (!jobs_.empty()) {
        finishBackground();
        runPending();
    }
}

void MemoryMainLoop::advance(std::chrono::milliseconds delay) {
    const std::int64_t end = elapsed_ + delay.count();
    const auto passUntil = [this](std::int64_t due) {
        now_ = now_ + std::chrono::milliseconds(due - elapsed_);
        elapsed_ = due;
    };
    settle();
    while (!timers_->empty() && timers_->begin()->first.first <= end) {
        auto node = timers_->extract(timers_->begin());
        passUntil(std::max(elapsed_, node.key().first));
        node.mapped()();
        settle();
    }
    passUntil(end);
}

void MemoryMainLoop::runInBackground(std::function<void()> work, std::function<void()> done) {
    jobs_.push_back({std::move(work), std::move(done)});
}

} // namespace pello
