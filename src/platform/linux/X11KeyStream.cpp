#include "platform/linux/X11KeyStream.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/linux/X11KeyCodes.h"

#include <algorithm>
#include <utility>
#include <vector>

// What the server sends for a press of a key that somebody may have grabbed:
//
//   raw press    the key alone. The modifiers of before came earlier, as a change of state.
//   grab press   only if a grab of ours took it: key, modifiers, and later its repeats
//
// A raw press of what the handler takes is kept back until the next event. If that is the grab's,
// it stands for both. Otherwise somebody else got the key, and to tell of it would make the handler
// take it as well; it is told of as some key that has no code, which spoils taps as any key does.

namespace pello {

using Kind = InputEvent::Kind;

namespace {

constexpr std::uint64_t kSides =
    modifiers::kRightCommandSide | modifiers::kRightOptionSide | modifiers::kRightControlSide;

bool isModifier(xcb_keycode_t key) {
    return x11Keys::modifierOf(x11Keys::virtualKey(key)) != 0;
}

X11KeyStream::Keys modifiersIn(X11KeyStream::Keys keys) {
    for (unsigned key = 0; key < keys.size(); ++key) {
        keys.set(key, keys.test(key) && isModifier(static_cast<xcb_keycode_t>(key)));
    }
    return keys;
}

} // namespace

X11KeyStream::X11KeyStream(TapRequest request, EventTap::Handler handler)
    : request_(std::move(request)), handler_(std::move(handler)) {}

void X11KeyStream::begin(const Map& map, const State& state) {
    map_ = map;
    setModifiers(state.modifiers, state.locked);
    held_ = modifiersIn(state.down);
}

void X11KeyStream::setModifiers(std::uint8_t modifiers, std::uint8_t locked) {
    modifiers_ = modifiers;
    locked_ = locked;
}

void X11KeyStream::setHolding(bool isHolding) {
    if (std::exchange(isHolding_, isHolding) && !isHolding) {
        grabEnded();
    }
}

void X11KeyStream::grabEnded() {
    for (auto& [key, down] : down_) {
        down.isGrabbed = false;
    }
}

void X11KeyStream::rawPress(xcb_keycode_t key) {
    settle();
    const std::uint16_t code = codeOf(key);
    if (isModifier(key)) {
        held_.set(key);
        tellModifier(code, 0);
    } else if (code == virtualKeys::kCapsLock) {
        tellCapsLock();
    } else if (isHolding_ && key != x11Keys::kCapsLock) {
        // The grab tells of it.
    } else if (isWanted(code, flags(modifiers_))) {
        awaitedPress_ = key;
    } else {
        down_.insert_or_assign(key, Down{.toldAs = code, .isGrabbed = false});
        tellKey(Kind::keyDown, code, modifiers_);
    }
}

void X11KeyStream::rawRelease(xcb_keycode_t key) {
    settle();
    if (isModifier(key)) {
        held_.reset(key);
        const std::uint16_t code = x11Keys::virtualKey(key);
        tellModifier(code, x11Keys::modifierOf(code));
        return;
    }
    const auto found = down_.find(key);
    if (found == down_.end()) {
        return;
    }
    if (found->second.isGrabbed) {
        awaitedRelease_ = key;
        return;
    }
    const std::uint16_t code = found->second.toldAs;
    down_.erase(found);
    tellKey(Kind::keyUp, code, modifiers_);
}

void X11KeyStream::buttonPress() {
    settle();
    tell({.kind = Kind::mouseDown, .flags = flags(modifiers_)});
}

void X11KeyStream::grabbedPress(xcb_keycode_t key, std::uint8_t modifiers, bool isRepeat) {
    if (awaitedPress_ != key) {
        settle();
    }
    const std::uint16_t code = codeOf(key);
    const bool isRawEnough = isModifier(key) || key == x11Keys::kCapsLock;
    if (isRawEnough || !(isHolding_ || isWanted(code, flags(modifiers)))) {
        return;
    }
    awaitedPress_.reset();
    if (isRepeat) {
        down_.try_emplace(key, Down{.toldAs = code, .isGrabbed = true});
    } else {
        down_.insert_or_assign(key, Down{.toldAs = code, .isGrabbed = true});
    }
    tellKey(Kind::keyDown, code, modifiers, isRepeat);
}

void X11KeyStream::grabbedRelease(xcb_keycode_t key, std::uint8_t modifiers) {
    if (awaitedRelease_ == key) {
        awaitedRelease_.reset();
    } else {
        settle();
    }
    const auto found = down_.find(key);
    if (found != down_.end() && found->second.isGrabbed) {
        const std::uint16_t code = found->second.toldAs;
        down_.erase(found);
        tellKey(Kind::keyUp, code, modifiers);
    }
}

/// No grab's event followed what is kept back: others got it.
void X11KeyStream::settle() {
    if (const auto key = std::exchange(awaitedPress_, std::nullopt)) {
        down_.insert_or_assign(*key, Down{.toldAs = virtualKeys::kNone, .isGrabbed = false});
        tellKey(Kind::keyDown, virtualKeys::kNone, modifiers_);
    }
    if (const auto key = std::exchange(awaitedRelease_, std::nullopt)) {
        const auto found = down_.find(*key);
        const std::uint16_t code = found->second.toldAs;
        down_.erase(found);
        tellKey(Kind::keyUp, code, modifiers_);
    }
}

void X11KeyStream::resynchronise(const State& state) {
    settle();
    setModifiers(state.modifiers, state.locked);
    const bool isMissing = std::ranges::any_of(
        down_, [&](const auto& entry) { return !state.down.test(entry.first); });
    if (isMissing || (held_ & ~state.down).any()) {
        tellNone();
        catchUpWith(state.down);
    }
    held_ = modifiersIn(state.down);
}

void X11KeyStream::catchUpWith(const Keys& down) {
    for (unsigned key = 0; key < held_.size(); ++key) {
        if (held_.test(key) && !down.test(key)) {
            held_.reset(key);
            tellModifier(x11Keys::virtualKey(static_cast<xcb_keycode_t>(key)), 0);
        }
    }
    std::vector<std::uint16_t> released;
    std::erase_if(down_, [&](const auto& entry) {
        const bool isUp = !down.test(entry.first);
        if (isUp) {
            released.push_back(entry.second.toldAs);
        }
        return isUp;
    });
    for (const std::uint16_t code : released) {
        tellKey(Kind::keyUp, code, modifiers_);
    }
}

void X11KeyStream::tell(InputEvent event) {
    if (!isOver_) {
        handler_(event);
    }
}

void X11KeyStream::tellKey(Kind kind, std::uint16_t code, std::uint8_t modifiers, bool isRepeat) {
    tell({.kind = kind, .keyCode = code, .flags = flags(modifiers), .isRepeat = isRepeat});
}

/// The server's state is that of before the key went down or up, so the key itself is added, and
/// what was `released` is taken away unless another key keeps it.
void X11KeyStream::tellModifier(std::uint16_t code, std::uint64_t released) {
    const std::uint64_t after = (flags(modifiers_) & ~(released | kSides)) | heldFlags();
    tell({.kind = Kind::flagsChanged, .keyCode = code, .flags = after});
}

/// A press that finds the lock on takes it off.
void X11KeyStream::tellCapsLock() {
    std::uint64_t after = flags(modifiers_) | heldFlags();
    if (map_.doesCapsLockLock) {
        after ^= modifiers::kCapsLock;
    }
    tell({.kind = Kind::flagsChanged, .keyCode = virtualKeys::kCapsLock, .flags = after});
}

void X11KeyStream::tellNone() {
    tellKey(Kind::keyDown, virtualKeys::kNone, modifiers_);
    tellKey(Kind::keyUp, virtualKeys::kNone, modifiers_);
}

bool X11KeyStream::isWanted(std::uint16_t code, std::uint64_t flags) const {
    const std::uint64_t held = flags & modifiers::kShortcutMask;
    const bool isCombo = std::ranges::any_of(request_.combos, [&](const TapRequest::Combo& combo) {
        return combo.keyCode == code && combo.modifiers == held;
    });
    return isCombo || (request_.takesCommandTab && code == virtualKeys::kTab &&
                       (held & ~modifiers::kShift) == modifiers::kCommand);
}

/// Where Caps Lock is the Hyper key, it alone comes as that.
std::uint16_t X11KeyStream::codeOf(xcb_keycode_t key) const {
    if (!request_.isHyperOn) {
        return x11Keys::virtualKey(key);
    }
    if (key == x11Keys::kCapsLock && map_.isCapsLockHyper) {
        return virtualKeys::kHyper;
    }
    const std::uint16_t code = x11Keys::virtualKey(key);
    return code == virtualKeys::kHyper ? virtualKeys::kNone : code;
}

std::uint64_t X11KeyStream::flags(std::uint8_t modifiers) const {
    const std::uint64_t set = map_.modifiers.flags(modifiers) & modifiers::kShortcutMask;
    const bool isLocked = (locked_ & XCB_MOD_MASK_LOCK) != 0;
    return set | (heldFlags() & kSides) | (isLocked ? modifiers::kCapsLock : 0);
}

std::uint64_t X11KeyStream::heldFlags() const {
    std::uint64_t flags = 0;
    for (unsigned key = 0; held_.any() && key < held_.size(); ++key) {
        if (held_.test(key)) {
            const std::uint16_t code = x11Keys::virtualKey(static_cast<xcb_keycode_t>(key));
            flags |= x11Keys::modifierOf(code) | x11Keys::sideOf(code);
        }
    }
    return flags;
}

} // namespace pello
