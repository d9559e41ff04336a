#pragma once

#include <QString>

#include <chrono>
#include <string>

namespace pello {

/// `utf8` as the toolkit takes it.
[[nodiscard]] QString shown(const std::string& utf8);

/// `day` as the reader's locale writes it.
[[nodiscard]] QString dateText(const std::chrono::year_month_day& day);

} // namespace pello
