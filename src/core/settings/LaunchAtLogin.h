#pragma once

#include "base/Signal.h"
#include "platform/LoginItem.h"

namespace pello {

/// Whether the program starts at login. Its store is the platform's own login items, not the
/// defaults. Main thread only.
class LaunchAtLogin {
public:
    /// Reads the platform's state. `item` must outlive this object.
    LaunchAtLogin(LoginItem& item, const Signal<>& anyChanged);

    [[nodiscard]] bool get() const { return value_; }
    [[nodiscard]] bool operator()() const { return value_; }

    /// Asks the platform to change it. When it refuses, the value is what the platform reports: a
    /// switch that shows the setting reads it again after setting it.
    void set(bool value);

    /// Reads the platform's state again: the user may have changed it in the system's settings.
    void reload();

    /// Emitted after the value became another one.
    Signal<> changed;

private:
    void take(bool value);

    LoginItem& item_;
    const Signal<>& anyChanged_;
    bool value_;
};

} // namespace pello
