#include "platform/macos/QuartzKeystrokes.h"

#import <ApplicationServices/ApplicationServices.h>

#include <memory>
#include <type_traits>

namespace pello {
namespace {

struct ReleaseObject {
    void operator()(CFTypeRef object) const { CFRelease(object); }
};
template <class Ref> using Owned = std::unique_ptr<std::remove_pointer_t<Ref>, ReleaseObject>;

constexpr CGKeyCode kVirtualKeyV = 9;

} // namespace

Keystrokes::Outcome QuartzKeystrokes::pressPaste() {
    const Owned<CGEventSourceRef> source(
        CGEventSourceCreate(kCGEventSourceStateCombinedSessionState));
    if (!source) {
        return Outcome::impossible;
    }
    const Owned<CGEventRef> down(CGEventCreateKeyboardEvent(source.get(), kVirtualKeyV, true));
    const Owned<CGEventRef> up(CGEventCreateKeyboardEvent(source.get(), kVirtualKeyV, false));
    if (!down || !up) {
        return Outcome::impossible;
    }
    for (CGEventRef event : {down.get(), up.get()}) {
        CGEventSetFlags(event, kCGEventFlagMaskCommand);
        CGEventPost(kCGHIDEventTap, event);
    }
    return Outcome::pressed;
}

} // namespace pello
