#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace pello {

/// Which of the X server's modifiers (XCB_MOD_MASK_...) stand for which flag. A plain value.
struct X11Modifiers {
    std::uint8_t option = XCB_MOD_MASK_1;
    std::uint8_t command = XCB_MOD_MASK_4;
    /// 0 where no key locks numbers.
    std::uint8_t numLock = XCB_MOD_MASK_2;

    friend bool operator==(const X11Modifiers&, const X11Modifiers&) = default;

    /// By the keys that the server has mapped now; waits for it.
    [[nodiscard]] static X11Modifiers of(xcb_connection_t* connection);

    /// The modifiers that set these flags; of others nothing is kept.
    [[nodiscard]] std::uint8_t mask(std::uint64_t flags) const;

    /// The flags that `mask` stands for, Caps Lock included.
    [[nodiscard]] std::uint64_t flags(std::uint8_t mask) const;
};

} // namespace pello
