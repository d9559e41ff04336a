#include "platform/RepeatingTimer.h"

#include <utility>

namespace pello {

void RepeatingTimer::start(std::chrono::milliseconds period, std::function<void()> tick) {
    next_ = loop_.after(period, [this, period, action = std::move(tick)] {
        start(period, action);
        action();
    });
}

} // namespace pello
