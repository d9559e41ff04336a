#pragma once

#include <string>
#include <string_view>

namespace pello {

/// `name`, in lower case, as a plain keyboard spells it: "são paulo" as "sao paulo", "st. john's"
/// as "st johns", "port-au-prince" as "port au prince". Letters of other scripts stay as they are.
[[nodiscard]] std::string plainSpelling(std::string_view name);

} // namespace pello
