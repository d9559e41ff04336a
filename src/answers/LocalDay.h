#pragma once

#include "answers/CalendarStep.h"
#include "base/Date.h"

#include <memory>
#include <optional>
#include <string_view>

namespace pello {

/// Which day it is in a time zone. Immutable; safe on any thread.
class LocalDay {
public:
    /// In the zone of that name, such as "Europe/Berlin". Without a name, and under one that is not
    /// known, in the zone that this machine is in now.
    explicit LocalDay(std::string_view timeZone);
    ~LocalDay();
    LocalDay(const LocalDay&) = delete;
    LocalDay& operator=(const LocalDay&) = delete;

    /// The day at `moment`. Nothing outside of the years 1 to 9999.
    [[nodiscard]] std::optional<CalendarDay> at(Date moment) const;

private:
    struct Zone;
    std::unique_ptr<Zone> zone_;
};

} // namespace pello
