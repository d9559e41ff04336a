#pragma once

#include <string>
#include <string_view>

namespace pello {

/// `utf8` with the first letter of each word in upper case and the others in lower case, as
/// `locale` writes them (see ReadersLocale.h). Safe on any thread.
[[nodiscard]] std::string capitalized(std::string_view utf8, std::string_view locale = {});

} // namespace pello
