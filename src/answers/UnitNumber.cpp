#include "answers/UnitNumber.h"

#include "base/DecimalText.h"
#include "base/Text.h"

#include <algorithm>
#include <string>

namespace pello::UnitNumber {
namespace {

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool hasDigit(std::string_view text) {
    return std::any_of(text.begin(), text.end(), isDigit);
}

/// Whether the only separators in a text are decimal points. `tail` follows the last of them.
bool isDecimal(char separator, std::string_view head, std::string_view tail,
               std::string_view localDecimal) {
    const char other = separator == ',' ? '.' : ',';
    if (head.find(other) != std::string_view::npos ||
        localDecimal == std::string_view(&separator, 1)) {
        return true;
    }
    return tail.size() != 3;
}

/// `run` with its separators reduced to at most one decimal point.
std::string plainDecimal(const std::string& run, std::string_view localDecimal) {
    const std::size_t last = run.find_last_of(".,");
    if (last == std::string::npos) {
        return run;
    }
    const auto head = std::string_view(run).substr(0, last);
    const auto tail = std::string_view(run).substr(last + 1);
    std::string plain(run.starts_with('-') ? "-" : "");
    std::copy_if(head.begin(), head.end(), std::back_inserter(plain), isDigit);
    if (isDecimal(run[last], head, tail, localDecimal)) {
        plain += '.';
    }
    return plain.append(tail);
}

} // namespace

std::optional<double> parse(std::string_view run, std::string_view localDecimal) {
    if (!hasDigit(run)) {
        return std::nullopt;
    }
    std::string digits;
    std::remove_copy(run.begin(), run.end(), std::back_inserter(digits), '_');
    return parseDecimal(plainDecimal(digits, localDecimal.empty() ? "." : localDecimal));
}

std::optional<Leading> leading(std::string_view utf8, std::string_view localDecimal) {
    const std::size_t first = utf8.starts_with('-') ? 1 : 0;
    const std::size_t end = std::min(utf8.find_first_not_of("0123456789.,_", first), utf8.size());
    const auto number = parse(utf8.substr(0, end), localDecimal);
    if (!number) {
        return std::nullopt;
    }
    return Leading{.number = *number, .rest = text::trimmingBlanks(utf8.substr(end))};
}

} // namespace pello::UnitNumber
