#include "keyboard/hotkeys/HotkeyConfiguration.h"

namespace pello {

TapRequest HotkeyConfiguration::tapRequest() const {
    TapRequest request{.takesCommandTab = replacesCommandTab,
                       .isHyperOn = hyperEnabled,
                       .capsLockActivates = capsLockActivates()};
    if (glyphCombo) {
        request.combos.push_back({glyphCombo->keyCode(), glyphCombo->modifiers()});
    }
    if (activation == Activation::keyCombo) {
        request.combos.push_back({combo.keyCode(), combo.modifiers()});
    }
    return request;
}

} // namespace pello
