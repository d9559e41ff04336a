#pragma once

#include <string>
#include <string_view>

namespace pello {

/// `utf8` with the first letter of each word in upper case and what follows in lower case, as
/// `locale` writes them (see ReadersLocale.h). White space divides words. Safe on any thread.
[[nodiscard]] std::string capitalized(std::string_view utf8, std::string_view locale = {});

} // namespace pello
