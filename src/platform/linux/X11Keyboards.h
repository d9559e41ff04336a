#pragma once

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdint>
#include <string>
#include <vector>

namespace pello {

/// The keyboards that the X server merges into the one that applications see.
struct X11Keyboards {
    /// One that the user types on.
    struct Device {
        std::uint16_t number = 0;
        std::string name;
        friend bool operator==(const Device&, const Device&) = default;
    };

    /// The merged one; 0 when there is none, or the server lacks the input extension.
    std::uint16_t merged = 0;
    std::vector<Device> devices;

    /// As they are now; waits for the server, which has to have been asked for the version of its
    /// input extension before.
    [[nodiscard]] static X11Keyboards of(xcb_connection_t* connection);
};

} // namespace pello
