#include "platform/linux/X11Modifiers.h"

#include "platform/ModifierFlags.h"
#include "platform/linux/Xcb.h"

#include <algorithm>
#include <array>
#include <span>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace pello {
namespace {

using Symbols = std::span<const xcb_keysym_t>;

bool holds(Symbols symbols, xcb_keysym_t one, xcb_keysym_t other) {
    return std::ranges::any_of(
        symbols, [=](xcb_keysym_t symbol) { return symbol == one || symbol == other; });
}

/// The symbols of every key.
class KeyMap {
public:
    explicit KeyMap(xcb_connection_t* connection) : first_(xcb_get_setup(connection)->min_keycode) {
        const auto count = xcb_get_setup(connection)->max_keycode - first_ + 1;
        reply_.reset(xcb_get_keyboard_mapping_reply(
            connection,
            xcb_get_keyboard_mapping(connection, first_, static_cast<std::uint8_t>(count)),
            nullptr));
    }

    [[nodiscard]] Symbols symbolsOf(xcb_keycode_t key) const {
        if (!reply_ || key < first_) {
            return {};
        }
        const Symbols all(
            xcb_get_keyboard_mapping_keysyms(reply_.get()),
            static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(reply_.get())));
        const std::size_t width = reply_->keysyms_per_keycode;
        const std::size_t at = width * static_cast<std::size_t>(key - first_);
        return at + width <= all.size() ? all.subspan(at, width) : Symbols();
    }

private:
    xcb_keycode_t first_;
    XcbReply<xcb_get_keyboard_mapping_reply_t> reply_;
};

/// Takes `mask` for what the key with `symbols` is for, unless an earlier modifier was.
void note(X11Modifiers& modifiers, Symbols symbols, std::uint8_t mask) {
    if (modifiers.option == 0 && holds(symbols, XKB_KEY_Alt_L, XKB_KEY_Alt_R)) {
        modifiers.option = mask;
    }
    if (modifiers.command == 0 && holds(symbols, XKB_KEY_Super_L, XKB_KEY_Super_R)) {
        modifiers.command = mask;
    }
    if (modifiers.numLock == 0 && holds(symbols, XKB_KEY_Num_Lock, XKB_KEY_Num_Lock)) {
        modifiers.numLock = mask;
    }
}

constexpr unsigned kFixedModifiers = 3; // Shift, Lock and Control always are what they are called
constexpr unsigned kModifiers = 8;

} // namespace

X11Modifiers X11Modifiers::of(xcb_connection_t* connection) {
    const XcbReply<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    if (!mapping) {
        return {};
    }
    const KeyMap map(connection);
    const std::size_t width = mapping->keycodes_per_modifier;
    const std::span keys(xcb_get_modifier_mapping_keycodes(mapping.get()), kModifiers * width);
    X11Modifiers found{.option = 0, .command = 0, .numLock = 0};
    for (unsigned modifier = kFixedModifiers; modifier < kModifiers; ++modifier) {
        for (const xcb_keycode_t key : keys.subspan(modifier * width, width)) {
            note(found, map.symbolsOf(key), static_cast<std::uint8_t>(1U << modifier));
        }
    }
    const X11Modifiers usual;
    found.option = found.option != 0 ? found.option : usual.option;
    found.command = found.command != 0 ? found.command : usual.command;
    return found;
}

std::uint8_t X11Modifiers::mask(std::uint64_t flags) const {
    unsigned mask = 0;
    mask |= (flags & modifiers::kShift) != 0 ? unsigned{XCB_MOD_MASK_SHIFT} : 0U;
    mask |= (flags & modifiers::kControl) != 0 ? unsigned{XCB_MOD_MASK_CONTROL} : 0U;
    mask |= (flags & modifiers::kOption) != 0 ? unsigned{option} : 0U;
    mask |= (flags & modifiers::kCommand) != 0 ? unsigned{command} : 0U;
    return static_cast<std::uint8_t>(mask);
}

std::uint64_t X11Modifiers::flags(std::uint8_t mask) const {
    std::uint64_t flags = 0;
    flags |= (mask & XCB_MOD_MASK_SHIFT) != 0 ? modifiers::kShift : 0;
    flags |= (mask & XCB_MOD_MASK_CONTROL) != 0 ? modifiers::kControl : 0;
    flags |= (mask & XCB_MOD_MASK_LOCK) != 0 ? modifiers::kCapsLock : 0;
    flags |= (mask & option) != 0 ? modifiers::kOption : 0;
    flags |= (mask & command) != 0 ? modifiers::kCommand : 0;
    return flags;
}

} // namespace pello
