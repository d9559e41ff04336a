#pragma once

#include "platform/Compositor.h"

namespace pello {

/// Blends windows, or does not, as its owner says.
class MemoryCompositor final : public Compositor {
public:
    explicit MemoryCompositor(bool running = false) : isRunning_(running) {}

    [[nodiscard]] bool isRunning() const override { return isRunning_; }
    void setRunning(bool running) { isRunning_ = running; }

private:
    bool isRunning_;
};

} // namespace pello
