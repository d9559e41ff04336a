#pragma once

#include "keyboard/keys/KeyCombo.h"
#include "ui/settings/SettingsServices.h"

#include <QString>

namespace pello {

/// Why `combo` would not open anything, a sentence a line; empty when it would.
[[nodiscard]] QString comboProblem(const SettingsServices& services, const KeyCombo& combo);

} // namespace pello
