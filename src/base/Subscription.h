#pragma once

#include <functional>
#include <utility>

namespace pello {

/// Something that lasts as long as its owner keeps it: a signal's subscriber, a pending timer, a
/// watched folder. Ending it twice is harmless. Belongs to the thread that made it.
class [[nodiscard]] Subscription {
public:
    /// Holds nothing.
    Subscription() = default;

    /// Calls `release` once, when this object is reset, replaced or destroyed.
    explicit Subscription(std::function<void()> release) : release_(std::move(release)) {}

    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    Subscription(Subscription&& other) noexcept
        : release_(std::exchange(other.release_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            release_ = std::exchange(other.release_, nullptr);
        }
        return *this;
    }

    ~Subscription() { reset(); }

    /// Ends it now.
    void reset() {
        if (auto release = std::exchange(release_, nullptr)) {
            release();
        }
    }

    [[nodiscard]] explicit operator bool() const { return static_cast<bool>(release_); }

private:
    std::function<void()> release_;
};

} // namespace pello
