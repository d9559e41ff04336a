#include "platform/linux/X11KeyFinder.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace pello {

X11KeyFinder::X11KeyFinder(xcb_connection_t* connection)
    : context_(xkb_context_new(XKB_CONTEXT_NO_FLAGS)) {
    const bool speaksXkb = xkb_x11_setup_xkb_extension(connection, XKB_X11_MIN_MAJOR_XKB_VERSION,
                                                       XKB_X11_MIN_MINOR_XKB_VERSION,
                                                       XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                                                       nullptr, nullptr, nullptr, nullptr) != 0;
    const int device = speaksXkb ? xkb_x11_get_core_keyboard_device_id(connection) : -1;
    if (!context_ || device < 0) {
        return;
    }
    keymap_.reset(xkb_x11_keymap_new_from_device(context_.get(), connection, device,
                                                 XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap_) {
        return;
    }
    const Owned<xkb_state, xkb_state_unref> state(
        xkb_x11_state_new_from_device(keymap_.get(), connection, device));
    if (state) {
        current_ = xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    }
}

/// Keys that are the same in all layouts have one only.
xkb_keysym_t X11KeyFinder::symbolOf(xkb_keycode_t key, xkb_layout_index_t layout) const {
    const xkb_layout_index_t count = xkb_keymap_num_layouts_for_key(keymap_.get(), key);
    const xkb_keysym_t* symbols = nullptr;
    const int found = count == 0 ? 0
                                 : xkb_keymap_key_get_syms_by_level(keymap_.get(), key,
                                                                    layout % count, 0, &symbols);
    return found == 1 ? *symbols : xkb_keysym_t{XKB_KEY_NoSymbol};
}

xcb_keycode_t X11KeyFinder::keyIn(xkb_layout_index_t layout, xkb_keysym_t symbol) const {
    const xkb_keycode_t last = xkb_keymap_max_keycode(keymap_.get());
    for (xkb_keycode_t key = xkb_keymap_min_keycode(keymap_.get()); key <= last; ++key) {
        if (symbolOf(key, layout) == symbol) {
            return static_cast<xcb_keycode_t>(key);
        }
    }
    return 0;
}

xcb_keycode_t X11KeyFinder::keyFor(xkb_keysym_t symbol) const {
    if (!isValid()) {
        return 0;
    }
    xcb_keycode_t key = keyIn(current_, symbol);
    const xkb_layout_index_t layouts = xkb_keymap_num_layouts(keymap_.get());
    for (xkb_layout_index_t other = 0; key == 0 && other < layouts; ++other) {
        key = keyIn(other, symbol);
    }
    return key;
}

bool X11KeyFinder::isHeldModifier(xcb_keycode_t key) const {
    if (!isValid()) {
        return false;
    }
    const xkb_keysym_t symbol = symbolOf(key, current_);
    const bool isLock = symbol == XKB_KEY_Caps_Lock || symbol == XKB_KEY_Shift_Lock;
    return (symbol >= XKB_KEY_Shift_L && symbol <= XKB_KEY_Hyper_R && !isLock) ||
           symbol == XKB_KEY_ISO_Level3_Shift || symbol == XKB_KEY_ISO_Level5_Shift;
}

} // namespace pello
