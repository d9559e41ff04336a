#pragma once

#include "platform/Keystrokes.h"

#include <functional>

namespace pello {

/// A keyboard that nobody sees: `onPaste` is told when it pastes.
class MemoryKeystrokes final : public Keystrokes {
public:
    [[nodiscard]] Outcome pressPaste() override {
        if (outcome == Outcome::pressed && onPaste) {
            onPaste();
        }
        return outcome;
    }

    Outcome outcome = Outcome::pressed;
    std::function<void()> onPaste;
};

} // namespace pello
