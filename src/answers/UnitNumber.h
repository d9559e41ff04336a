#pragma once

#include <optional>
#include <string_view>

/// The numbers that quantities begin with, in either convention of decimal and grouping
/// separators: "1,234.5" and "1.234,5". Safe on any thread.
namespace pello::UnitNumber {

/// A number, and the text after it without outer blanks: a piece of the text that was read.
struct Leading {
    double number;
    std::string_view rest;
};

/// The number at the very beginning of `utf8`, with or without a minus; nothing when no digit is
/// there. `localDecimal` as in `parse`.
[[nodiscard]] std::optional<Leading> leading(std::string_view utf8, std::string_view localDecimal);

/// The number that `run` is: ASCII digits, commas, dots and underscores, perhaps after a minus.
/// `localDecimal` is the character that the locale puts before decimals; it decides how a text
/// reads that has one separator only ("1,500"). Nothing when no digit is there.
[[nodiscard]] std::optional<double> parse(std::string_view run, std::string_view localDecimal);

} // namespace pello::UnitNumber
