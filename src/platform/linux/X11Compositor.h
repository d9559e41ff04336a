#pragma once

#include "platform/Compositor.h"

namespace pello {

/// Asks the display that Qt is connected to. On X11 somebody must own the screen's compositing
/// selection; on other displays blending is always there.
class X11Compositor final : public Compositor {
public:
    [[nodiscard]] bool isRunning() const override;
};

} // namespace pello
