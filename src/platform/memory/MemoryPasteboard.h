#pragma once

#include "platform/Pasteboard.h"

namespace pello {

/// A pasteboard of one's own, which counts how often it was read.
class MemoryPasteboard final : public Pasteboard {
public:
    void setText(std::string_view text) override {
        text_ = text;
        isOwn_ = true;
    }
    [[nodiscard]] std::string text() override {
        ++readings;
        return text_;
    }

    [[nodiscard]] bool holdsOwn(std::string_view text) override { return isOwn_ && text_ == text; }

    /// Another program copies `text`.
    void copyElsewhere(std::string_view text) {
        text_ = text;
        isOwn_ = false;
    }

    int readings = 0;

private:
    std::string text_;
    bool isOwn_ = false;
};

} // namespace pello
