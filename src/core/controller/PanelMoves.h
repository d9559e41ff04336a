#pragma once

#include "core/settings/PelloSettings.h"

namespace pello {

/// Follows the user who moves the panel about, and keeps where it was left. Main thread only.
class PanelMoves {
public:
    /// `settings` must outlive the moves.
    explicit PanelMoves(PelloSettings& settings) : settings_(settings) {}

    void begin() { isMoving_ = true; }

    /// The panel stands at `placement` from now on.
    void end(const PanelPlacement& placement) {
        isMoving_ = false;
        settings_.panelPlacement.set(placement);
    }

    /// The panel stands where it does of itself.
    void undo() { settings_.panelPlacement.set(PanelPlacement{}); }

    [[nodiscard]] bool isMoving() const { return isMoving_; }

private:
    PelloSettings& settings_;
    bool isMoving_ = false;
};

} // namespace pello
