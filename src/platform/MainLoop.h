#pragma once

#include "base/Date.h"
#include "base/Subscription.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace pello {

/// The main thread's event loop, its clock and its workers.
///
/// All state of the program lives on the main thread; this is how anything waits or leaves it.
/// Only `post` may be called from other threads.
class MainLoop {
public:
    virtual ~MainLoop() = default;

    /// The current time; in tests a virtual one.
    [[nodiscard]] virtual Date now() const = 0;

    /// Runs `action` on the main thread in a later turn of the loop, in the order of posting. Any
    /// thread.
    virtual void post(std::function<void()> action) = 0;

    /// Runs `action` once on the main thread when `delay` has passed, unless the returned
    /// subscription ends before.
    [[nodiscard]] virtual Subscription after(std::chrono::milliseconds delay,
                                             std::function<void()> action) = 0;

    /// Runs `work` on a worker thread, then `done` with its result on the main thread. `work` must
    /// hold values only, never a pointer into the program's state.
    template <class Work, class Done>
    void background(Work work, Done done) {
        using Result = std::invoke_result_t<Work>;
        auto result = std::make_shared<std::optional<Result>>();
        runInBackground([result, work = std::move(work)] { result->emplace(work()); },
                        [result, done = std::move(done)] { done(std::move(**result)); });
    }

protected:
    /// Runs `work` on a worker thread and then `done` on the main thread.
    virtual void runInBackground(std::function<void()> work, std::function<void()> done) = 0;
};

} // namespace pello
