#pragma once

#include "platform/AddressHandlers.h"

namespace pello {

/// Handlers as the shared workspace knows them.
class CocoaAddressHandlers final : public AddressHandlers {
public:
    [[nodiscard]] std::optional<std::filesystem::path>
    applicationFor(std::string_view address) const override;
};

} // namespace pello
