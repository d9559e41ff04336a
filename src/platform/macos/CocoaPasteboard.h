#pragma once

#include "platform/Pasteboard.h"

namespace pello {

/// The general pasteboard.
class CocoaPasteboard final : public Pasteboard {
public:
    void setText(std::string_view text) override;
    [[nodiscard]] std::optional<std::string> text() override;
    [[nodiscard]] bool holdsOwn(std::string_view text) override;

private:
    long ownChange_ = -1; // the pasteboard's change count as `setText` left it
};

} // namespace pello
