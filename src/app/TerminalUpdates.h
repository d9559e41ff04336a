#pragma once

#include "core/controller/PelloController.h"
#include "platform/linux/LoadedFeedReader.h"
#include "updates/ReleaseLoader.h"

namespace pello {

/// The launcher's own commands where there are no windows: what a check for updates found is one
/// sentence more. Needs Qt's event loop.
class TerminalUpdates {
public:
    /// Installs itself in `controller`, which must outlive this object as `loop` must.
    TerminalUpdates(PelloController& controller, MainLoop& loop);
    ~TerminalUpdates();
    TerminalUpdates(const TerminalUpdates&) = delete;
    TerminalUpdates& operator=(const TerminalUpdates&) = delete;

private:
    void tell(const ReleaseFeed::Contents& contents);

    PelloController& controller_;
    LoadedFeedReader reader_;
    ReleaseLoader loader_;
};

} // namespace pello
