#pragma once

#include <unicode/basictz.h>

#include <memory>
#include <string_view>

namespace pello {

/// The zone called `name` in the time zone database ("Europe/Berlin"); without a name, or with one
/// that the database does not hold, the zone that this machine is set to now, and UTC where it is
/// set to none. Never null. Reads files; any thread.
[[nodiscard]] std::unique_ptr<icu::BasicTimeZone> readersTimeZone(std::string_view name = {});

} // namespace pello
