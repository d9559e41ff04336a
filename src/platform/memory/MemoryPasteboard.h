#pragma once

#include "platform/Pasteboard.h"

#include <utility>

namespace pello {

/// A pasteboard of one's own, which counts how often it was read. It hands its text over at once,
/// or when it is told to.
class MemoryPasteboard final : public Pasteboard {
public:
    void setText(std::string_view text) override {
        text_ = text;
        isOwn_ = true;
    }
    [[nodiscard]] std::optional<std::string> text() override {
        ++readings;
        return isReadable ? std::optional(text_) : std::nullopt;
    }
    void read(const std::function<void(std::optional<std::string>)>& action) override {
        if (isSlow) {
            waiting_ = action;
        } else {
            action(text());
        }
    }

    [[nodiscard]] bool holdsOwn(std::string_view text) override { return isOwn_ && text_ == text; }

    /// Another program copies `text`.
    void copyElsewhere(std::string_view text) {
        text_ = text;
        isOwn_ = false;
    }

    /// Hands over what somebody waits for.
    void handOver() { std::exchange(waiting_, {})(text()); }

    int readings = 0;
    bool isReadable = true;
    bool isSlow = false;

private:
    std::function<void(std::optional<std::string>)> waiting_;
    std::string text_;
    bool isOwn_ = false;
};

} // namespace pello
