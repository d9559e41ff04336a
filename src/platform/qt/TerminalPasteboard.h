#pragma once

#include "platform/Pasteboard.h"

#include <iosfwd>

namespace pello {

/// The pasteboard of the terminal that the user sits at, over ssh too.
///
/// Terminals are told what to copy by a control sequence (OSC 52), which most of them follow and
/// the others ignore. They do not tell what lies on it: that is what was copied here.
class TerminalPasteboard final : public Pasteboard {
public:
    /// `terminal` must outlive this object.
    explicit TerminalPasteboard(std::ostream& terminal) : terminal_(terminal) {}

    void setText(std::string_view text) override;
    [[nodiscard]] std::optional<std::string> text() override { return text_; }
    [[nodiscard]] bool holdsOwn(std::string_view text) override { return text_ == text; }

private:
    std::ostream& terminal_;
    std::string text_;
};

} // namespace pello
