#pragma once

#include "base/Subscription.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace pello {

/// The bookkeeping that every `Signal` shares, independent of its argument types.
class SignalCore {
public:
    struct Slot {
        virtual ~Slot() = default;
        bool isConnected = true;
    };

    void add(std::shared_ptr<Slot> slot);

    /// Marks `slot` as gone; it leaves the list once no emission runs.
    void remove(Slot& slot);

    /// Calls `notify` for each slot that was connected when the emission began and still is.
    void emit(const std::function<void(Slot&)>& notify);

private:
    void sweep();

    std::vector<std::shared_ptr<Slot>> slots_;
    int depth_ = 0;
    bool hasGone_ = false;
};

/// Tells any number of subscribers that something happened.
///
/// A subscriber may subscribe, unsubscribe (itself or another), emit again, or destroy the signal
/// while it is being notified: one that was unsubscribed is not called any more, one that
/// subscribes during an emission is first called by the next. Notified in order of subscription.
/// One thread only.
template <class... Args>
class Signal {
public:
    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    /// Calls `notify` at every emission while the returned subscription lives. The subscription
    /// may outlive the signal.
    [[nodiscard]] Subscription connect(std::function<void(Args...)> notify) {
        auto slot = std::make_shared<TypedSlot>(std::move(notify));
        core_->add(slot);
        return Subscription([weakCore = std::weak_ptr(core_), slot] {
            if (auto core = weakCore.lock()) {
                core->remove(*slot);
            } else {
                slot->isConnected = false;
            }
        });
    }

    void emit(Args... args) const {
        const auto core = core_; // the signal may be destroyed by a subscriber
        core->emit([&](SignalCore::Slot& slot) { static_cast<TypedSlot&>(slot).notify(args...); });
    }

private:
    struct TypedSlot : SignalCore::Slot {
        explicit TypedSlot(std::function<void(Args...)> action) : notify(std::move(action)) {}
        std::function<void(Args...)> notify;
    };

    std::shared_ptr<SignalCore> core_ = std::make_shared<SignalCore>();
};

} // namespace pello
