#pragma once

#include "platform/Pasteboard.h"

namespace pello {

/// A pasteboard of one's own, which counts how often it was read.
class MemoryPasteboard final : public Pasteboard {
public:
    void setText(std::string_view text) override { text_ = text; }
    [[nodiscard]] std::string text() override {
        ++readings;
        return text_;
    }

    int readings = 0;

private:
    std::string text_;
};

} // namespace pello
