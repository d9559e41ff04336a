#pragma once

#include "platform/Pasteboard.h"

namespace pello {

/// The general pasteboard.
class CocoaPasteboard final : public Pasteboard {
public:
    void setText(std::string_view text) override;
    [[nodiscard]] std::string text() override;
};

} // namespace pello
