#include "keyboard/hotkeys/StallGuard.h"

namespace pello {

bool StallGuard::noteTimeoutAndCheckTrip(Date now) {
    std::erase_if(recentTimeouts_,
                  [now](Date timeout) { return now - timeout >= Seconds(kWindowSeconds); });
    recentTimeouts_.push_back(now);
    return recentTimeouts_.size() > 1;
}

} // namespace pello
