#pragma once

#include "answers/Uuid.h"

#include <optional>
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

    /// The stored form of a list: JSON objects with "alias", "url" and "id", all of them required.
    /// Nothing when `json` is anything else.
    [[nodiscard]] static std::optional<std::vector<URLAlias>> decodeList(std::string_view json);
    [[nodiscard]] static std::string encodeList(const std::vector<URLAlias>& aliases);

    friend bool operator==(const URLAlias&, const URLAlias&) = default;
};

} // namespace pello
