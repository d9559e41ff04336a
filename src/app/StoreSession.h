#pragma once

#include "app/HeadlessPlatform.h"

namespace pello {

/// The stored settings and learned data for the length of one command. What goes wrong with them is
/// said on standard error.
class StoreSession {
public:
    StoreSession();

    [[nodiscard]] UserDefaults& defaults() { return platform_.defaults(); }
    [[nodiscard]] LoginItem& loginItem() { return platform_.loginItem(); }
    [[nodiscard]] const MainLoop& loop() { return platform_.ports().loop; }

    /// Writes what was changed. Returns the exit status.
    [[nodiscard]] int finish();

private:
    HeadlessPlatform platform_{{}};
    Subscription onProblem_;
};

} // namespace pello
