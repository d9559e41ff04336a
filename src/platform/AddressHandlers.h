#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace pello {

/// Which applications open which addresses. May read files; any thread.
class AddressHandlers {
public:
    virtual ~AddressHandlers() = default;

    /// The application that the user's desktop opens the absolute `address` with, as the file that
    /// describes it (see BundleReader); nothing when no application is there for it.
    [[nodiscard]] virtual std::optional<std::filesystem::path>
    applicationFor(std::string_view address) const = 0;
};

} // namespace pello
