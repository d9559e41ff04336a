#pragma once

#include "platform/linux/XcbXkb.h"

#include <cstdint>

namespace pello {

/// The event code of the X keyboard extension, whose events `watchXkb` asks for; 0 when the server
/// lacks it.
///
/// Greets the extension, which has to come first, and asks for all events of the `kinds`
/// (XCB_XKB_EVENT_TYPE_...) of the keyboard that applications see. Waits for the server.
std::uint8_t watchXkb(xcb_connection_t* connection, std::uint16_t kinds);

} // namespace pello
