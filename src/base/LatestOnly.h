#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace pello {

/// Lets only the newest answer count.
///
/// Wrap the completion of each background job: of several jobs under way, only the completion that
/// was wrapped last is called, and none after this object has died. One thread only.
class LatestOnly {
public:
    template <class... Args>
    [[nodiscard]] std::function<void(Args...)> wrap(std::function<void(Args...)> done) {
        const std::uint64_t ticket = ++*newest_;
        return [weakNewest = std::weak_ptr(newest_), ticket, done = std::move(done)](Args... args) {
            const auto newest = weakNewest.lock();
            if (newest && *newest == ticket) {
                done(std::forward<Args>(args)...);
            }
        };
    }

    /// Whatever is under way no longer counts.
    void cancel() { ++*newest_; }

private:
    std::shared_ptr<std::uint64_t> newest_ = std::make_shared<std::uint64_t>(0);
};

} // namespace pello
