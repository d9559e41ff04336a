#include "core/settings/PanelPlacement.h"

#include "base/DecimalText.h"
#include "base/Text.h"

namespace pello {

std::optional<PanelPlacement> PanelPlacement::fromStorage(std::string_view stored) {
    const auto pieces = text::split(stored, ':');
    if (pieces.size() != 2) {
        return std::nullopt;
    }
    const auto centerX = parseDecimal(pieces[0]);
    const auto top = parseDecimal(pieces[1]);
    if (!centerX || !top) {
        return std::nullopt;
    }
    return PanelPlacement{.centerX = *centerX, .top = *top};
}

std::string PanelPlacement::storageValue() const {
    return decimalText(centerX) + ':' + decimalText(top);
}

} // namespace pello
