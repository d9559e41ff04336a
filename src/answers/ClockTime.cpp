#include "answers/ClockTime.h"

namespace pello {
namespace {

using std::chrono::hours;
using std::chrono::minutes;

/// Which half of the day a twelve-hour clock means.
enum class Half { morning, afternoon };

std::optional<Half> halfNamed(std::string_view word) {
    if (word == "am" || word == "a.m." || word == "a.m") {
        return Half::morning;
    }
    if (word == "pm" || word == "p.m." || word == "p.m") {
        return Half::afternoon;
    }
    return std::nullopt;
}

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// Cuts the digits off that `text` begins with.
std::string_view takeDigits(std::string_view& text) {
    const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
    text.remove_prefix(digits.size());
    return digits;
}

/// A word in its parts: "3", ":", "15", "pm".
struct Parts {
    std::string_view hour;
    char separator = '\0';
    std::string_view minute;
    std::string_view rest;

    explicit Parts(std::string_view word) : hour(takeDigits(word)), rest(word) {
        if (!rest.empty() && (rest.front() == ':' || rest.front() == '.')) {
            separator = rest.front();
            rest.remove_prefix(1);
            minute = takeDigits(rest);
        }
    }

    [[nodiscard]] bool hasShape() const {
        return !hour.empty() && hour.size() <= 2 && minute.size() == (separator != '\0' ? 2 : 0);
    }
};

int valueOf(std::string_view fewDigits) {
    int value = 0;
    for (const char digit : fewDigits) {
        value = 10 * value + (digit - '0');
    }
    return value;
}

std::optional<ClockTime> dayTime(int hour, int minute) {
    if (hour > 23 || minute > 59) {
        return std::nullopt;
    }
    return ClockTime{.sinceMidnight = hours(hour) + minutes(minute)};
}

std::optional<ClockTime> ofTwelveHours(const Parts& parts, Half half) {
    const int hour = parts.hasShape() ? valueOf(parts.hour) : 0;
    if (hour < 1 || hour > 12) {
        return std::nullopt;
    }
    return dayTime(hour % 12 + (half == Half::afternoon ? 12 : 0), valueOf(parts.minute));
}

std::optional<ClockTime> ofTwentyFourHours(const Parts& parts) {
    if (parts.separator == '\0' && parts.hour.size() == 4) {
        auto time = dayTime(valueOf(parts.hour.substr(0, 2)), valueOf(parts.hour.substr(2)));
        if (time) {
            time->isBareNumber = true;
        }
        return time;
    }
    // "3.15" is a number as well: only a colon makes it a time.
    return parts.separator == ':' && parts.hasShape()
               ? dayTime(valueOf(parts.hour), valueOf(parts.minute))
               : std::nullopt;
}

std::optional<ClockTime> named(std::string_view word) {
    if (word == "noon" || word == "midday") {
        return ClockTime{.sinceMidnight = hours(12)};
    }
    return word == "midnight" ? std::optional(ClockTime{}) : std::nullopt;
}

} // namespace

std::optional<ClockTime::Reading> ClockTime::leading(std::span<const std::string_view> words) {
    if (words.empty() || words.front().empty()) {
        return std::nullopt;
    }
    std::optional<ClockTime> time = named(words.front());
    std::size_t wordCount = 1;
    if (isDigit(words.front().front())) {
        const Parts parts(words.front());
        const auto half = halfNamed(parts.rest);
        const auto nextHalf = words.size() > 1 ? halfNamed(words[1]) : std::nullopt;
        if (half) {
            time = ofTwelveHours(parts, *half);
        } else if (parts.rest.empty() && nextHalf) {
            time = ofTwelveHours(parts, *nextHalf);
            wordCount = 2;
        } else if (parts.rest.empty()) {
            time = ofTwentyFourHours(parts);
        }
    }
    return time ? std::optional(Reading{.time = *time, .wordCount = wordCount}) : std::nullopt;
}

} // namespace pello
