#pragma once

#include "ui/settings/SettingsServices.h"

#include <QComboBox>

namespace pello {

/// A list of what can open the launcher, bound to the setting. `services` must outlive it.
[[nodiscard]] QComboBox* newActivationBox(const SettingsServices& services);

} // namespace pello
