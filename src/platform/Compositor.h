#pragma once

namespace pello {

/// What blends windows together on the screen. Main thread only.
class Compositor {
public:
    virtual ~Compositor() = default;

    /// Whether windows may be translucent now. It may start or end at any time.
    [[nodiscard]] virtual bool isRunning() const = 0;
};

} // namespace pello
