#pragma once

#include "answers/Uuid.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// An address that the user launches by a name. A plain value.
struct URLAlias {
    /// The name that the user types.
    std::string alias;
    /// The address as the user entered it, possibly without a scheme.
    std::string url;
    Uuid id = Uuid::random();

    /// The name as rows show it: without outer blanks.
    [[nodiscard]] std::string_view title() const;

    /// The address to open: the one entered, or if that has no scheme, a secure web address made of
    /// it. Nothing when neither is an address.
    [[nodiscard]] std::optional<std::string> resolvedURL() const;

    /// What the user should mend in a list, in sentences; empty when nothing.
    [[nodiscard]] static std::vector<std::string> problems(std::span<const URLAlias> aliases);

    /// The stored form of a list: JSON objects with "alias", "url" and "id", all of them required.
    /// Nothing when `json` is anything else.
    [[nodiscard]] static std::optional<std::vector<URLAlias>> decodeList(std::string_view json);
    [[nodiscard]] static std::string encodeList(const std::vector<URLAlias>& aliases);

    friend bool operator==(const URLAlias&, const URLAlias&) = default;
};

} // namespace pello
