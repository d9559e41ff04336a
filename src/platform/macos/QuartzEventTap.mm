#include "platform/macos/QuartzEventTap.h"

#include "platform/ModifierFlags.h"
#include "platform/macos/OwnedObject.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Carbon/Carbon.h>
#import <IOKit/IOKitLib.h>
#import <IOKit/hidsystem/IOHIDLib.h>
#import <IOKit/hidsystem/IOHIDParameter.h>
#import <IOKit/hidsystem/IOHIDShared.h>

#include <bitset>
#include <cassert>
#include <utility>

namespace pello {
namespace {

static_assert(modifiers::kCapsLock == kCGEventFlagMaskAlphaShift);
static_assert(modifiers::kShift == kCGEventFlagMaskShift);
static_assert(modifiers::kControl == kCGEventFlagMaskControl);
static_assert(modifiers::kOption == kCGEventFlagMaskAlternate);
static_assert(modifiers::kCommand == kCGEventFlagMaskCommand);

constexpr CGEventMask kEvents = CGEventMaskBit(kCGEventLeftMouseDown) |
                                CGEventMaskBit(kCGEventRightMouseDown) |
                                CGEventMaskBit(kCGEventKeyDown) | CGEventMaskBit(kCGEventKeyUp) |
                                CGEventMaskBit(kCGEventFlagsChanged);

/// Which of the keys are down, by their codes.
using Keys = std::bitset<128>;

std::optional<InputEvent::Kind> kindOf(CGEventType type) {
    switch (type) {
    case kCGEventKeyDown:
        return InputEvent::Kind::keyDown;
    case kCGEventKeyUp:
        return InputEvent::Kind::keyUp;
    case kCGEventFlagsChanged:
        return InputEvent::Kind::flagsChanged;
    case kCGEventLeftMouseDown:
    case kCGEventRightMouseDown:
        return InputEvent::Kind::mouseDown;
    case kCGEventTapDisabledByTimeout:
        return InputEvent::Kind::disabledByTimeout;
    case kCGEventTapDisabledByUserInput:
        return InputEvent::Kind::disabledByUserInput;
    default:
        return std::nullopt;
    }
}

InputEvent inputEvent(InputEvent::Kind kind, CGEventRef event) {
    const bool isNotice = kind == InputEvent::Kind::disabledByTimeout ||
                          kind == InputEvent::Kind::disabledByUserInput;
    if (isNotice || event == nullptr) {
        return {.kind = kind};
    }
    return {.kind = kind,
            .keyCode = static_cast<std::uint16_t>(
                CGEventGetIntegerValueField(event, kCGKeyboardEventKeycode)),
            .flags = CGEventGetFlags(event),
            .isRepeat = CGEventGetIntegerValueField(event, kCGKeyboardEventAutorepeat) != 0};
}

std::uint64_t flagsNow() {
    return CGEventSourceFlagsState(kCGEventSourceStateCombinedSessionState);
}

/// By the hardware or by another program. What this tap swallows does not reach the session's own
/// state.
bool isDown(CGKeyCode key) {
    return CGEventSourceKeyState(kCGEventSourceStateHIDSystemState, key) ||
           CGEventSourceKeyState(kCGEventSourceStateCombinedSessionState, key);
}

} // namespace

/// The tap from its creation to its removal.
class QuartzEventTap::Installed {
public:
    explicit Installed(Handler handler)
        : handler_(std::make_shared<const Handler>(std::move(handler))),
          port_(CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap,
                                 kCGEventTapOptionDefault, kEvents, receive, this)) {
        if (port_) {
            source_.reset(CFMachPortCreateRunLoopSource(nullptr, port_.get(), 0));
            CFRunLoopAddSource(CFRunLoopGetMain(), source_.get(), kCFRunLoopCommonModes);
            enable();
        }
    }
    ~Installed() {
        if (port_) {
            CGEventTapEnable(port_.get(), false);
            CFRunLoopRemoveSource(CFRunLoopGetMain(), source_.get(), kCFRunLoopCommonModes);
            CFMachPortInvalidate(port_.get());
        }
    }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;

    [[nodiscard]] bool exists() const { return port_ != nullptr; }
    void enable() { CGEventTapEnable(port_.get(), true); }
    [[nodiscard]] bool isEnabled() const { return CGEventTapIsEnabled(port_.get()); }
    [[nodiscard]] const Keys& keysDown() const { return keysDown_; }

    /// Gives the handler `event`; true when it is to be swallowed. This object may be gone then.
    bool tell(InputEvent& event) {
        if (event.keyCode < keysDown_.size()) {
            if (event.kind == InputEvent::Kind::keyDown) {
                keysDown_.set(event.keyCode);
            } else if (event.kind == InputEvent::Kind::keyUp) {
                keysDown_.reset(event.keyCode);
            }
        }
        const auto handler = handler_;
        return (*handler)(event);
    }

private:
    static CGEventRef receive(CGEventTapProxy /*proxy*/, CGEventType type, CGEventRef event,
                              void* tap) {
        const auto kind = kindOf(type);
        if (!kind) {
            return event;
        }
        InputEvent input = inputEvent(*kind, event);
        const std::uint64_t flags = input.flags;
        if (static_cast<Installed*>(tap)->tell(input)) {
            return nullptr;
        }
        if (input.flags != flags) {
            CGEventSetFlags(event, input.flags);
        }
        return event;
    }

    std::shared_ptr<const Handler> handler_;
    Keys keysDown_;
    OwnedObject<CFMachPortRef> port_;
    OwnedObject<CFRunLoopSourceRef> source_;
};

QuartzEventTap::QuartzEventTap() = default;
QuartzEventTap::~QuartzEventTap() = default;

bool QuartzEventTap::install(const TapRequest& /*request*/, Handler handler) {
    assert(!installed_);
    auto installed = std::make_unique<Installed>(std::move(handler));
    if (!installed->exists()) {
        return false;
    }
    installed_ = std::move(installed);
    return true;
}

void QuartzEventTap::remove() { installed_.reset(); }

void QuartzEventTap::enable() {
    if (installed_) {
        installed_->enable();
    }
}

bool QuartzEventTap::isEnabled() const { return installed_ && installed_->isEnabled(); }

void QuartzEventTap::refresh() {
    for (std::uint16_t key = 0; installed_ && key < Keys().size(); ++key) { // a handler may remove
        if (installed_->keysDown().test(key) && !isDown(key)) {
            InputEvent released{
                .kind = InputEvent::Kind::keyUp, .keyCode = key, .flags = flagsNow()};
            installed_->tell(released);
        }
    }
}

void QuartzEventTap::resetCapsLock() {
    const io_service_t service =
        IOServiceGetMatchingService(kIOMainPortDefault, IOServiceMatching(kIOHIDSystemClass));
    io_connect_t connection = IO_OBJECT_NULL;
    if (service == IO_OBJECT_NULL) {
        return;
    }
    if (IOServiceOpen(service, mach_task_self(), kIOHIDParamConnectType, &connection) ==
        KERN_SUCCESS) {
        IOHIDSetModifierLockState(connection, kIOHIDCapsLockState, false);
        IOServiceClose(connection);
    }
    IOObjectRelease(service);
}

std::uint64_t QuartzEventTap::heldModifiers() const {
    return flagsNow() & modifiers::kShortcutMask;
}

bool QuartzEventTap::isSecureInputEngaged() const { return IsSecureEventInputEnabled(); }

} // namespace pello
