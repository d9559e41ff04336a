#pragma once

#include "base/Date.h"
#include "core/settings/Activation.h"
#include "platform/InputEvent.h"

#include <cstdint>
#include <optional>

namespace pello {

/// Recognises the quick tap of one lone modifier key.
///
/// Whatever else happens between press and release spoils it: another key, another modifier, a
/// click.
class ModifierTap {
public:
    /// Follows a flagsChanged event, while `activation` says which key counts. True when the event
    /// completes a tap.
    [[nodiscard]] bool completes(const InputEvent& event, Activation activation, Date now);

    /// Forgets a press: it is not going to be a tap.
    void spoil() { pressedAt_.reset(); }

private:
    std::optional<Date> pressedAt_;
};

} // namespace pello
