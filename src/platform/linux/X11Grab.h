#pragma once

#include "platform/TapRequest.h"

#include <cstdint>

namespace pello {

/// A combo that is taken from applications on an X server, or why it is not. A plain value.
struct X11Grab {
    enum class State {
        held,
        /// Another program has it in the same way. The server does not tell which.
        takenByAnother,
        /// Keyboards here have no such key.
        noSuchKey,
        /// The server refused, or is gone.
        refused
    };

    TapRequest::Combo combo;
    State state = State::refused;

    friend bool operator==(const X11Grab&, const X11Grab&) = default;
};

} // namespace pello
