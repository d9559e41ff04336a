#include "answers/UtcOffset.h"

#include <algorithm>

namespace pello::UtcOffset {
namespace {

using std::chrono::hours;
using std::chrono::minutes;

constexpr minutes kEarliest = -hours(12);
constexpr minutes kLatest = hours(14);

bool take(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

void skipSpace(std::string_view& text) {
    static_cast<void>(take(text, " "));
}

std::optional<int> number(std::string_view digits) {
    int value = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        value = 10 * value + (digit - '0');
    }
    return value;
}

/// "5", "05", "5:30", "0530".
std::optional<minutes> unsignedOffset(std::string_view text) {
    const std::size_t colon = text.find(':');
    std::string_view hourDigits = text.substr(0, colon);
    std::string_view minuteDigits = "00";
    if (colon != std::string_view::npos) {
        minuteDigits = text.substr(colon + 1);
    } else if (text.size() == 4) {
        hourDigits = text.substr(0, 2);
        minuteDigits = text.substr(2);
    }
    if (hourDigits.empty() || hourDigits.size() > 2 || minuteDigits.size() != 2) {
        return std::nullopt;
    }
    const auto hour = number(hourDigits);
    const auto minute = number(minuteDigits);
    if (!hour || !minute || *minute > 59) {
        return std::nullopt;
    }
    return hours(*hour) + minutes(*minute);
}

} // namespace

std::optional<minutes> read(std::string_view text) {
    if (!take(text, "utc") && !take(text, "gmt")) {
        return std::nullopt;
    }
    skipSpace(text);
    const bool isBehind = take(text, "-") || take(text, "\u2212");
    if (!isBehind && !take(text, "+")) {
        return std::nullopt;
    }
    skipSpace(text);
    const auto size = unsignedOffset(text);
    if (!size) {
        return std::nullopt;
    }
    const minutes offset = isBehind ? -*size : *size;
    return offset >= kEarliest && offset <= kLatest ? std::optional(offset) : std::nullopt;
}

std::string name(minutes offset) {
    std::string result = "UTC";
    if (offset == minutes(0)) {
        return result;
    }
    const auto size = std::chrono::abs(offset);
    const auto past = (size % hours(1)).count();
    result.append(offset < minutes(0) ? "-" : "+");
    result.append(std::to_string(std::chrono::floor<hours>(size).count()));
    if (past != 0) {
        result.append(past < 10 ? ":0" : ":").append(std::to_string(past));
    }
    return result;
}

} // namespace pello::UtcOffset
