#pragma once

#include "base/Date.h"
#include "platform/InputEvent.h"

#include <optional>

namespace pello {

/// The Hyper key: held, it gives all four modifiers to every other key and click; tapped by itself,
/// it may activate.
class HyperHold {
public:
    /// The key's press. Its repeats mean nothing.
    void begin(const InputEvent& press, Date now);

    /// The key's release. True when it was tapped and nothing was done with it.
    [[nodiscard]] bool endsInTap(Date now);

    [[nodiscard]] bool isDown() const { return isDown_; }

    /// Gives the modifiers to a key press or a click, if the key is held; it is no tap any more.
    void use(InputEvent& event);

    /// Gives the modifiers to a release, if the key is held.
    void mark(InputEvent& event) const;

    /// Forgets everything, as if the key were up.
    void reset() { *this = {}; }

private:
    bool isDown_ = false;
    bool wasUsed_ = false;
    std::optional<Date> pressedAt_;
};

} // namespace pello
