#pragma once

#include "base/Date.h"

#include <cmath>
#include <ctime>
#include <string>

namespace pello {

/// `date` in UTC, whole seconds, in the form that strftime's `format` gives. Any thread.
[[nodiscard]] inline std::string utcText(Date date, const char* format) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.unixSeconds()));
    std::tm fields{};
    ::gmtime_r(&seconds, &fields);
    std::string text(64, '\0');
    text.resize(std::strftime(text.data(), text.size(), format, &fields));
    return text;
}

} // namespace pello
