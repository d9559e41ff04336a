#include "platform/memory/MemoryEventTap.h"

#include <cassert>
#include <utility>

namespace pello {

bool MemoryEventTap::install(const TapRequest& request, Handler handler) {
    assert(!handler_);
    if (!canBeInstalled || whyNever) {
        return false;
    }
    request_ = request;
    handler_ = std::make_shared<const Handler>(std::move(handler));
    isOn_ = true;
    ++installations;
    return true;
}

void MemoryEventTap::remove() {
    request_.reset();
    handler_.reset();
    isOn_ = false;
    isKeyboardHeld = false;
}

bool MemoryEventTap::happen(InputEvent& event) {
    const auto handler = handler_; // it may remove the tap
    const bool isNotice = event.kind == InputEvent::Kind::disabledByTimeout ||
                          event.kind == InputEvent::Kind::disabledByUserInput;
    if (!handler || (!isNotice && !isOn_)) {
        return false;
    }
    isOn_ = isOn_ && !isNotice;
    return (*handler)(event);
}

} // namespace pello
