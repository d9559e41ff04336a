#include "base/Signal.h"

#include <algorithm>

namespace pello {

void SignalCore::add(std::shared_ptr<Slot> slot) {
    slots_.push_back(std::move(slot));
}

void SignalCore::remove(Slot& slot) {
    slot.isConnected = false;
    hasGone_ = true;
    if (depth_ == 0) {
        sweep();
    }
}

void SignalCore::emit(const std::function<void(Slot&)>& notify) {
    ++depth_;
    const std::size_t count = slots_.size();
    for (std::size_t i = 0; i < count; ++i) {
        const auto slot = slots_[i]; // keeps it alive, and survives growth of the list
        if (slot->isConnected) {
            notify(*slot);
        }
    }
    --depth_;
    if (depth_ == 0 && hasGone_) {
        sweep();
    }
}

void SignalCore::sweep() {
    std::erase_if(slots_, [](const auto& slot) { return !slot->isConnected; });
    hasGone_ = false;
}

} // namespace pello
