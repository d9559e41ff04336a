#pragma once

#include "platform/EnvironmentVariables.h"

#include <functional>

namespace pello {

/// The environment that the user's programs have in a terminal. Main thread only.
class LoginEnvironment {
public:
    virtual ~LoginEnvironment() = default;

    /// Calls `action` with the environment: at once when it is known, soon otherwise (within some
    /// two seconds), unless this object goes before. It is always known in the end, if need be as
    /// the one that this program was started with.
    virtual void whenKnown(std::function<void(const EnvironmentVariables&)> action) = 0;
};

} // namespace pello
