#pragma once

#include "keyboard/keys/KeyCombo.h"
#include "platform/KeyboardLayout.h"
#include "platform/PreferenceDomains.h"

#include <optional>
#include <string>

/// What the settings say about shortcuts.
namespace pello::shortcutTexts {

/// Where the remap of Caps Lock stands, as the settings explain it. A plain value.
struct HyperState {
    bool isOn = false;
    bool isOwn = false;
    bool capsLockActivates = false;
    /// Whether the system has the remap; nothing while that is not known.
    std::optional<bool> isActive;
};

/// What the option does, and what becomes of the system.
[[nodiscard]] std::string hyperExplanation(const HyperState& state);

/// What is wrong with the remap; empty when nothing is.
[[nodiscard]] std::string hyperProblem(const HyperState& state);

/// Which feature of the system takes `combo`, and what to do about it; nothing when none does.
[[nodiscard]] std::optional<std::string> systemConflict(const KeyCombo& combo,
                                                        const PreferenceDomains& preferences,
                                                        const KeyboardLayout& layout);

} // namespace pello::shortcutTexts
