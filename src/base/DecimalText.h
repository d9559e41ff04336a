#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// The shortest decimal text that reads back as the finite `number`, with at least one fraction
/// digit ("0.22", "16.0"). The same under every locale.
[[nodiscard]] std::string decimalText(double number);

/// The whole of `text` as a finite decimal number, under every locale the same; nothing when it is
/// anything else (hexadecimal, infinite, surrounded by spaces).
[[nodiscard]] std::optional<double> parseDecimal(std::string_view text);

} // namespace pello
