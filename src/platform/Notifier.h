#pragma once

#include "base/Signal.h"

#include <string>
#include <string_view>

namespace pello {

/// Shows notifications as the desktop does. Returns at once; main thread only.
class Notifier {
public:
    virtual ~Notifier() = default;

    /// Shows `title` and below it `body`, plain text of any number of lines.
    virtual void notify(std::string_view title, std::string_view body) = 0;

    /// A notification could not be shown: a sentence that says why, for the log.
    Signal<const std::string&> failed;
};

} // namespace pello
