#pragma once

#include "answers/TimePlace.h"

#include <unicode/datefmt.h>
#include <unicode/locid.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// How times, days and offsets read: in the reader's format and language, within English sentences.
///
/// Everything is prepared when the object is made. One object is used by one thread at a time.
class TimeTexts {
public:
    explicit TimeTexts(const icu::Locale& reader);

    /// "3:00 PM", or "15:00" where the reader counts to 24.
    [[nodiscard]] std::string clock(WallTime time) const;

    /// The same, and which day that is when it is another than `today`: "3:00 AM (tomorrow)",
    /// "3:00 AM (Wednesday)".
    [[nodiscard]] std::string clock(WallTime time, std::chrono::local_days today) const;

    /// "Tokyo is 8 hours ahead of Berlin", where the one's clocks are `ahead` of the other's.
    [[nodiscard]] std::string comparison(std::string_view place, std::chrono::milliseconds ahead,
                                         std::string_view other) const;

    /// "3:00 PM in London, 5 hours ahead of New York", the same for a time there.
    [[nodiscard]] std::string comparison(std::string_view time, std::string_view place,
                                         std::chrono::milliseconds ahead,
                                         std::string_view other) const;

private:
    /// "5 hours 30 minutes"
    [[nodiscard]] std::string duration(std::chrono::minutes length) const;

    std::unique_ptr<icu::DateFormat> clock_;
    /// From Sunday on.
    std::array<std::string, 7> weekdays_;
    /// "0 hours", "1 hour" and so on.
    std::vector<std::string> hours_;
    std::vector<std::string> minutes_;
};

} // namespace pello
