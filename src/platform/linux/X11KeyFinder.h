#pragma once

#include <xcb/xcb.h>

#include <memory>
#include <xkbcommon/xkbcommon.h>

namespace pello {

/// Where keys stand on the keyboard, by the layout that is in use now.
class X11KeyFinder {
public:
    /// Asks the server, and waits for it. Afterwards the connection is not used.
    explicit X11KeyFinder(xcb_connection_t* connection);

    /// Whether the server told its layout. Nothing is found otherwise.
    [[nodiscard]] bool isValid() const { return keymap_ != nullptr; }

    /// The key that gives `symbol` without modifiers: in the current layout, or else in another one
    /// that the user switches to. 0 when there is none.
    [[nodiscard]] xcb_keycode_t keyFor(xkb_keysym_t symbol) const;

    /// Whether `key` does something only together with others, and nothing by itself: Shift does,
    /// Caps Lock does not.
    [[nodiscard]] bool isHeldModifier(xcb_keycode_t key) const;

    /// The symbol that `key` gives without modifiers in the layout of this number; none when it
    /// gives nothing, or several. Only where `isValid`.
    [[nodiscard]] xkb_keysym_t symbolOf(xkb_keycode_t key, xkb_layout_index_t layout) const;

private:
    template <auto Release>
    struct Releaser {
        template <class T>
        void operator()(T* object) const {
            Release(object);
        }
    };
    template <class T, auto Release>
    using Owned = std::unique_ptr<T, Releaser<Release>>;

    [[nodiscard]] xcb_keycode_t keyIn(xkb_layout_index_t layout, xkb_keysym_t symbol) const;

    Owned<xkb_context, xkb_context_unref> context_;
    Owned<xkb_keymap, xkb_keymap_unref> keymap_;
    xkb_layout_index_t current_ = 0;
};

} // namespace pello
