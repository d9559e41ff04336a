#pragma once

#include "platform/AddressHandlers.h"

#include <map>
#include <string>

namespace pello {

/// Handlers by scheme.
class MemoryAddressHandlers final : public AddressHandlers {
public:
    [[nodiscard]] std::optional<std::filesystem::path>
    applicationFor(std::string_view address) const override {
        const auto found = applications.find(std::string(address.substr(0, address.find(':'))));
        return found != applications.end() ? std::optional(found->second) : std::nullopt;
    }

    std::map<std::string, std::filesystem::path> applications;
};

} // namespace pello
