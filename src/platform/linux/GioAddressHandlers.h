#pragma once

#include "platform/AddressHandlers.h"

namespace pello {

/// Handlers as the desktop's list of default applications names them: by scheme, and
/// files by their kind.
class GioAddressHandlers final : public AddressHandlers {
public:
    [[nodiscard]] std::optional<std::filesystem::path>
    applicationFor(std::string_view address) const override;
};

} // namespace pello
