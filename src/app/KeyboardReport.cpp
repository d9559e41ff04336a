#include "app/KeyboardReport.h"

#include <nlohmann/json.hpp>

namespace pello {

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(KeyboardReport::Grab, combo, isHeld, reason)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(KeyboardReport::Hyper, isWanted, isInPlace, isOwn)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(KeyboardReport, health, lastFailure, isAccessibilityTrusted,
                                   hasInputMonitoring, activation, grabs, areGrabsSettled, hyper)

std::string KeyboardReport::line() const {
    return nlohmann::json(*this).dump();
}

std::optional<KeyboardReport> KeyboardReport::fromLine(std::string_view line) {
    try {
        return nlohmann::json::parse(line).get<KeyboardReport>();
    } catch (const nlohmann::json::exception&) {
        return std::nullopt;
    }
}

} // namespace pello
