#include "ui/settings/ShortcutTexts.h"

namespace pello::shortcutTexts {

std::string hyperExplanation(const HyperState& state) {
    std::string text = "Hold Caps Lock with another key to send ⌃⌥⌘⇧ with it, so shortcuts bound "
                       "to Hyper keep working. Caps Lock stops capitalising while this is on.";
    if (state.capsLockActivates) {
        text += " Tapping Caps Lock opens Pello. Holding it with another key sends Hyper instead, "
                "so both behaviours coexist.";
    }
    if (!state.isOn) {
        text += " Turning this on installs a system-wide keyboard remap, which Pello undoes again "
                "on quit.";
    } else if (state.isOwn) {
        text += " Pello installed the system-wide remap and will undo it on quit.";
    } else if (state.isActive == true) {
        text += " Another tool had already installed this remap, so Pello is using it and will "
                "leave it in place.";
    }
    return text;
}

std::string hyperProblem(const HyperState& state) {
    return state.isOn && state.isActive == false
               ? "The keyboard remap isn't in place. Toggling this off and on again usually fixes "
                 "it."
               : "";
}

std::optional<std::string> systemConflict(const KeyCombo& combo,
                                          const PreferenceDomains& preferences,
                                          const KeyboardLayout& layout) {
    const auto owner = combo.systemShortcutOwner(preferences);
    if (!owner) {
        return std::nullopt;
    }
    return combo.displayString(layout) + " is the system shortcut for " + std::string(*owner) +
           ". Turn it off in Keyboard Shortcuts, or pick another combination.";
}

} // namespace pello::shortcutTexts
