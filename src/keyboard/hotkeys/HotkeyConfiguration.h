#pragma once

#include "core/settings/Activation.h"
#include "keyboard/keys/KeyCombo.h"
#include "platform/TapRequest.h"

#include <optional>

namespace pello {

/// What the keyboard listener listens for. A plain value.
struct HotkeyConfiguration {
    Activation activation = Activation::rightCommand;
    /// What activates when `activation` is `keyCombo`.
    KeyCombo combo{KeyCombo::kSpaceKey, KeyCombo::kOption};
    /// What opens the glyph picker.
    std::optional<KeyCombo> glyphCombo;
    /// Caps Lock is remapped to the Hyper key.
    bool hyperEnabled = false;
    /// Command-Tab is taken from the system's switcher.
    bool replacesCommandTab = false;

    /// A press of Caps Lock itself activates.
    [[nodiscard]] bool capsLockActivates() const {
        return activation == Activation::capsLock && !hyperEnabled;
    }

    /// Whether the activation works without being shown the keys of other programs.
    [[nodiscard]] bool needsOnlyAccessibility() const {
        return activation != Activation::capsLock && activation != Activation::keyCombo;
    }

    /// What a tap has to be able to take.
    [[nodiscard]] TapRequest tapRequest() const;

    friend bool operator==(const HotkeyConfiguration&, const HotkeyConfiguration&) = default;
};

} // namespace pello
