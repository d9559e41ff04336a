#include "platform/macos/QuartzKeystrokes.h"

#include "platform/macos/OwnedObject.h"

#import <ApplicationServices/ApplicationServices.h>

namespace pello {
namespace {

constexpr CGKeyCode kVirtualKeyV = 9;

} // namespace

Keystrokes::Outcome QuartzKeystrokes::pressPaste() {
    const OwnedObject<CGEventSourceRef> source(
        CGEventSourceCreate(kCGEventSourceStateCombinedSessionState));
    if (!source) {
        return Outcome::impossible;
    }
    const OwnedObject<CGEventRef> down(
        CGEventCreateKeyboardEvent(source.get(), kVirtualKeyV, true));
    const OwnedObject<CGEventRef> up(CGEventCreateKeyboardEvent(source.get(), kVirtualKeyV, false));
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
