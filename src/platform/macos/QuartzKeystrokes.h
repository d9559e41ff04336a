#pragma once

#include "platform/Keystrokes.h"

namespace pello {

/// Presses keys by synthetic events, which the user must have allowed this program to post.
class QuartzKeystrokes final : public Keystrokes {
public:
    /// Command-V.
    [[nodiscard]] Outcome pressPaste() override;
};

} // namespace pello
